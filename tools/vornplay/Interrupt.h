#pragma once

/// Makes Ctrl-C and requests to terminate a wish to stop, which Interrupted tells. The second one
/// ends the program at once.
void CatchInterrupts();

bool Interrupted();
