#pragma once

/// Makes one glGetError call and logs its code, if it has one, with \p line. Further errors in GL's
/// queue surface at later checks; control flow never depends on them.
///
/// \param line the number by which the log names the check. The numbers are fixed, whatever line
///             of the source a check stands on, so that logs of different releases compare.
void CheckGLError(int line);
