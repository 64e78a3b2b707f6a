#include "kits/interface/AlertAnswer.h"

#include <gtest/gtest.h>

using BPrivate::AlertAnswer;

TEST(AlertAnswerTest, IsNoneAtFirst) {
    const AlertAnswer answer;
    EXPECT_EQ(answer.Button(), AlertAnswer::kNone);
}

TEST(AlertAnswerTest, TheFirstOneCounts) {
    AlertAnswer answer;
    answer.Give(1);
    answer.Give(0);
    EXPECT_EQ(answer.Button(), 1);
    answer.Close();
    EXPECT_TRUE(answer.WaitForClose());
    EXPECT_EQ(answer.Button(), 1);
}
