#include "shell/program/CWindowProgram.h"

int main(int argc, char** argv) {
    return CWindowProgram(argc, argv).Run();
}
