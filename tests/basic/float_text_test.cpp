#include "basic/float_text.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <random>

namespace kvt::test {

namespace {

std::string OfLibrary(float value) {
    char buffer[128];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr};
}

std::string OfOurs(float value) {
    char buffer[128];
    return {buffer, WriteShortest(buffer, buffer + sizeof buffer, value)};
}

}  // namespace

// Sizes of programs with up to seven decimals, numbers of any size, and what lies beside the powers of two.
TEST(FloatTextTest, WritesWhatTheStandardLibraryWrites) {
    std::mt19937 random(1);
    for (int i = 0; i < 40'000; ++i) {
        const auto decimals = static_cast<int>(random() % 8);
        const auto number = static_cast<float>((random() % 10'000'000) / std::pow(10.0, decimals));
        ASSERT_EQ(OfOurs(number), OfLibrary(number));
        const float any =
            std::ldexp(static_cast<float>(random() % 16'777'216), static_cast<int>(random() % 150) - 90);
        ASSERT_EQ(OfOurs(any), OfLibrary(any));
    }
    for (int power = -90; power < 128; ++power) {
        const float number = std::ldexp(1.0F, power);
        for (const float each : {std::nextafter(number, 0.0F), number, std::nextafter(number, 1e38F)})
            ASSERT_EQ(OfOurs(each), OfLibrary(each)) << power;
    }
}

TEST(FloatTextTest, ReadsTheNearestNumber) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20'000; ++i) {
        std::string digits = std::to_string(random()) + std::to_string(random() % 1000);
        digits.insert(random() % (digits.size() + 1), 1, '.');
        double expected = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), expected, std::chars_format::fixed);
        ASSERT_EQ(NearestDouble(digits), expected) << digits;
    }
    EXPECT_TRUE(std::isinf(NearestDouble(std::string(400, '9'))));
    EXPECT_EQ(NearestDouble("-0." + std::string(400, '0') + "1"), 0);
}

}  // namespace kvt::test
