// The tests' main: Allegro without a display, its colour order that of a window, random numbers from a fixed seed.
#include "harness/harness.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    nubo::start_without_display();
    return RUN_ALL_TESTS();
}
