#pragma once

/// The whole process: toolkit, folder of the program, main window, event loop. @return exit code
int runVelumark(int argc, char** argv);
