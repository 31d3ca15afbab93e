// Zervo.exe as zervo-cli: no window, the streams of the program that started it.
#pragma once

namespace win32 {

// The word before those of the command line.
inline constexpr const wchar_t* kCommandLineWord = L"--zervo-cli";

bool startedAsCommandLine();
// Runs the words behind that one; the exit code of the process.
int runCommandLine();

}  // namespace win32
