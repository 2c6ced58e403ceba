#include <gtest/gtest.h>

#include <csignal>

#include "projections/Gnomic.h"

// The gnomonic projection is a placeholder: building one must stop the
// process with the message alone on standard error, by abort (SIGABRT),
// rather than hand out a grid that converts nothing.
TEST(GnomicDeathTest, ConstructionReportsAndAborts) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT({ CGxGnomic gnomic; }, testing::KilledBySignal(SIGABRT),
                "^Gnomic projection not implemented yet\n$");
}
