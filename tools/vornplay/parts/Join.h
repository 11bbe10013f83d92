#pragma once

/// Runs "vornplay --join OUT PARTS...": puts parts together without encoding them again, and copies
/// the audio of the clip. \return an ExitStatus \throws ToolError
int Join(int argc, char** argv);
