// The program with its window. On Linux it is a module, loaded by name.
#pragma once

extern "C" {

/// Runs the window until the program is quit.
/// \returns the exit code of the process
int frimbolateWindowProgram(int argc, char* argv[]);
}
