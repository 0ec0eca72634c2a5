#include "Support/TestMain.h"

int main(int argumentCount, char **arguments) {
    return TestProgram::run(argumentCount, arguments);
}
