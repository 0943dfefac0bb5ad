// The tests of the Qt display.
#include "qt_fixture.h"

int main(int argc, char** argv) {
    return kv::RunTestsOnQtDisplay(argc, argv);
}
