// What the fields accept as a number, and numbers written and read with a
// full stop whatever the desktop's locale.

#include "CKRNStringParser.h"
#include "KRNNumberText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <string>

TEST(NumberTest, AcceptsOneDecimalNumberBetweenBlanks) {
    CKRNStringParser parser;
    for (const char* text : {"12", "  12  ", "\t12\t", "12.5", "-3", "+3", "1e3", "0", "0.0", "00", "0.", " 0 ",
                             "007", "1.5e-3", "-12.75"})
        EXPECT_TRUE(parser.IsNumber(text)) << '"' << text << '"';
}

TEST(NumberTest, RefusesEverythingElse) {
    CKRNStringParser parser;
    // A zero that does not start with the digit zero is no number on these screens.
    for (const char* text : {"", "   ", "\t", "-0.0", "+0", ".0", ".5e-400", "abc", "12a", "12 a", "1 2", "1,5",
                             "nan", "inf", "-inf", "1e999", "0x10", "--1", "12..5", "\n12"})
        EXPECT_FALSE(parser.IsNumber(text)) << '"' << text << '"';
    EXPECT_FALSE(parser.IsNumber(nullptr));
    // A leading full stop with a non-zero value is a number: only zeros are special.
    EXPECT_TRUE(parser.IsNumber(".5"));
}

class CommaLocale : public ::testing::Test {
protected:
    void SetUp() override {
        m_previous = std::setlocale(LC_ALL, nullptr);
        if (!std::setlocale(LC_ALL, "de_DE.UTF-8")) GTEST_SKIP() << "de_DE.UTF-8 is not generated here";
    }
    void TearDown() override { std::setlocale(LC_ALL, m_previous.c_str()); }
    std::string m_previous;
};

TEST_F(CommaLocale, FormatsAndReadsWithAFullStop) {
    char native[32];
    std::snprintf(native, sizeof native, "%.1f", 1.5);
    ASSERT_STREQ(native, "1,5") << "the locale did not take";
    EXPECT_EQ(KRNFormat("%6.2f", 12.5), QStringLiteral(" 12.50"));
    EXPECT_EQ(FormatNumber(1234.5), QStringLiteral("1234.5"));
    EXPECT_EQ(KRNFormat("%d/%d", 2024, 3), QStringLiteral("2024/3"));
    EXPECT_EQ(KRNAtof("12.5"), 12.5);
    EXPECT_EQ(KRNAtof(QStringLiteral(" 7.25mm")), 7.25);
    EXPECT_EQ(KRNAtoi("42.9"), 42);
    CKRNStringParser parser;
    EXPECT_TRUE(parser.IsNumber("12.5"));
    EXPECT_FALSE(parser.IsNumber("12,5"));
}

// Every reader takes the same texts for numbers as the number test.
TEST(NumberText, ReadersAgreeWithTheNumberTest) {
    EXPECT_EQ(KRNAtof("0x10"), 0.0);  // hexadecimal is no number on the screens
    EXPECT_EQ(KRNAtof("infinity"), 0.0);
    EXPECT_EQ(KRNAtof("nan(1)"), 0.0);
    EXPECT_EQ(KRNAtoi("1e3"), 1000);
    EXPECT_EQ(KRNAtoi("2.5"), 2);
    EXPECT_EQ(KRNAtoi("1e400"), 0);  // as KRNAtof: an overflow reads as no number
    EXPECT_EQ(KRNAtof("1e400"), 0.0);
    EXPECT_EQ(KRNAtof("12e"), 12.0);  // an exponent without digits is not read
    const char* end = nullptr;
    EXPECT_EQ(KRNStrtod("-1.5e2x", &end), -150.0);
    EXPECT_STREQ(end, "x");
    EXPECT_EQ(KRNStrtod("+.e1", &end), 0.0);
    EXPECT_STREQ(end, "+.e1");

    CKRNStringParser parser;
    double whole = 0;
    EXPECT_TRUE(parser.IsWholeNumber("1e3", whole));
    EXPECT_EQ(whole, 1000.0);
    EXPECT_TRUE(parser.IsWholeNumber(" 3.0 ", whole));
    for (const char* text : {"2.5", "", "-", "abc", "1e400", "0x3"}) EXPECT_FALSE(parser.IsWholeNumber(text, whole)) << text;
    // What the test accepts, the readers read the same way.
    for (const char* text : {"12", "1e3", "2.5", "99999999999", "-7", "0.", "007"}) {
        ASSERT_TRUE(parser.IsNumber(text)) << text;
        EXPECT_EQ(KRNAtoi(text), static_cast<int>(std::max(-2147483648.0, std::min(2147483647.0, std::trunc(KRNAtof(text))))))
            << text;
    }
}

TEST(NumberText, ValuesThatAreNoNumberShowAsDashes) {
    EXPECT_EQ(KRNFormatValue("%6.2f", HUGE_VAL), QStringLiteral("---"));
    EXPECT_EQ(KRNFormatValue("%6.2f", std::nan("")), QStringLiteral("---"));
    EXPECT_EQ(FormatNumber(-HUGE_VAL), QStringLiteral("---"));
    EXPECT_EQ(KRNFormatValue("%6.2f", 3.0), QStringLiteral("  3.00"));
}

TEST(NumberText, ReadsLikeTheCLibrary) {
    EXPECT_EQ(KRNAtof(""), 0.0);
    EXPECT_EQ(KRNAtof("abc"), 0.0);
    EXPECT_EQ(KRNAtof(nullptr), 0.0);
    EXPECT_EQ(KRNAtoi("-17 stages"), -17);
    EXPECT_EQ(KRNAtoi("99999999999"), 2147483647);
    EXPECT_EQ(KRNAtoi(""), 0);
    const char* text = "3.5 mm";
    const char* end = nullptr;
    EXPECT_EQ(KRNStrtod(text, &end), 3.5);
    EXPECT_STREQ(end, " mm");
    EXPECT_EQ(FormatNumber(0.1), QStringLiteral("0.1"));
    EXPECT_EQ(FormatNumber(1e7), QStringLiteral("1e+07"));
    EXPECT_EQ(KRNFormat("%s", std::string(300, 'x').c_str()).size(), 300);  // longer than the stack buffer
}
