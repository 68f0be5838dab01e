#include "app/Start.h"

int main(int argc, char** argv) { return runVelumark(argc, argv); }
