#include <maya/MLibrary.h>

#include <gtest/gtest.h>

// Test programs start mayasim once, as a standalone Maya application does.
int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    MStatus status = MLibrary::initialize(argv[0], true);
    if (!status)
        return 1;
    const int result = RUN_ALL_TESTS();
    MLibrary::cleanup(0, false);
    return result;
}
