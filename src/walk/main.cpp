// The program's entry: nothing but the guard around it.
#include <windows.h>

#include "walk/program.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) { return telvar::walk::runProgram(); }
