#pragma once

/// The whole program: reads the arguments, does what they ask. Answers the exit code: 0 when it was done, 1 when not
/// (the reason is on standard error), 2 for arguments that make no sense; nothing has happened then.
int RunCommandLine(int argc, const char* const* argv);
