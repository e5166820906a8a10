// The program's entry: nothing but the guard around it.
#include <windows.h>

#include "host/shell/program.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int command) { return telvar::host::runProgram(command); }
