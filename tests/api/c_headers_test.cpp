#include <gtest/gtest.h>

extern "C" int CallFromC(const char* table);

TEST(CHeaders, AreCallableFromC) {
    EXPECT_EQ(CallFromC(TABVEX_SAMPLES_DIR "/calculation.table"), 0);
}
