// The stage-count keypad as a user taps it.

#include "arburg_selogica/CKRNMachineArburgCalc.h"
#include "KRNPanelTest.h"

#include <gtest/gtest.h>

using namespace KRNTest;

namespace {

constexpr int kKey[10] = {1377, 1367, 1368, 1369, 1371, 1372, 1373, 1374, 1375, 1376};
constexpr int kClear = 1370, kConfirm = 1387, kCancel = 1386, kValue = 1366, kRange = 1364;

struct Outcome {
    int result = 0;
    int value = 0;
    std::vector<std::string> messages;
};

// Opens the keypad on `stages` with bound `max`, taps `keys` (digits, 'c' clear),
// then confirms until it closes or `confirmations` run out.
Outcome Tap(int stages, int max, const std::string& keys, bool confirm = true) {
    KRNMessageCapture messages;
    CKRNMachineArburgCalc keypad;
    keypad.m_nValue = stages;
    keypad.m_nMaxValue = max;
    keypad.m_bTenPending = 0;
    Outcome out;
    WhileOpen([&] { out.result = keypad.DoModal(); },
              [&] {
                  for (char k : keys) Click(k == 'c' ? kClear : kKey[k - '0']);
                  if (confirm) Click(kConfirm);
              });
    out.value = keypad.m_nValue;
    out.messages = messages.Texts();
    return out;
}

}  // namespace

TEST(ArburgKeypad, OpensOnThePresentCountAndItsRange) {
    CKRNMachineArburgCalc keypad;
    keypad.m_nValue = 2;
    keypad.m_nMaxValue = 10;
    WhileOpen([&] { keypad.DoModal(); },
              [&] {
                  EXPECT_EQ(Text(kValue), "2");
                  EXPECT_EQ(Text(kRange), "[1-10]");
                  Click(kKey[7]);
                  EXPECT_EQ(Text(kValue), "7");
              });
}

TEST(ArburgKeypad, OneThenZeroMakesTenWithinTheBound) {
    Outcome ten = Tap(2, 10, "10");
    EXPECT_EQ(ten.result, IDOK);
    EXPECT_EQ(ten.value, 10);
    EXPECT_TRUE(ten.messages.empty());

    // Clear in between leaves the pending one standing.
    Outcome cleared = Tap(2, 10, "1c0");
    EXPECT_EQ(cleared.result, IDOK);
    EXPECT_EQ(cleared.value, 10);
}

TEST(ArburgKeypad, RefusesBeyondTheBoundAndStaysOpen) {
    Outcome over = Tap(2, 5, "10");
    EXPECT_NE(over.result, IDOK);  // cancelled after the refusal
    ASSERT_EQ(over.messages.size(), 1u);
    EXPECT_EQ(over.messages[0], "Can't more than 5");

    Outcome exactly = Tap(2, 5, "5");
    EXPECT_EQ(exactly.result, IDOK);
    EXPECT_EQ(exactly.value, 5);
}

TEST(ArburgKeypad, RefusesZeroNamingZero) {
    for (const std::string& keys : {std::string("0"), std::string("c"), std::string("70")}) {
        Outcome zero = Tap(3, 5, keys);
        EXPECT_NE(zero.result, IDOK) << keys;
        EXPECT_EQ(zero.value, 0) << keys;  // "7" cleared the pending one: "0" is zero
        ASSERT_EQ(zero.messages.size(), 1u) << keys;
        EXPECT_EQ(zero.messages[0], "Can't smaller than 0") << keys;
    }
    Outcome one = Tap(3, 5, "1");
    EXPECT_EQ(one.result, IDOK);
    EXPECT_EQ(one.value, 1);
}

TEST(ArburgKeypad, CancelAndEscapeKeepTheCount) {
    CKRNMachineArburgCalc keypad;
    keypad.m_nValue = 3;
    keypad.m_nMaxValue = 5;
    int result = 0;
    WhileOpen([&] { result = keypad.DoModal(); }, [&] { Click(kKey[4]), Click(kCancel); });
    EXPECT_EQ(result, IDCANCEL);

    CKRNMachineArburgCalc again;
    again.m_nMaxValue = 5;
    WhileOpen([&] { result = again.DoModal(); }, [&] { PressKey(Qt::Key_Escape); });
    EXPECT_EQ(result, IDCANCEL);
}

TEST(ArburgKeypad, EnterConfirmsThroughTheSameCheck) {
    KRNMessageCapture messages;
    CKRNMachineArburgCalc keypad;
    keypad.m_nMaxValue = 5;
    int result = 0;
    WhileOpen([&] { result = keypad.DoModal(); },
              [&] {
                  Click(kKey[9]);
                  PressKey(Qt::Key_Return);  // refused: 9 > 5
                  Click(kKey[4]);
                  PressKey(Qt::Key_Return);
              });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(keypad.m_nValue, 4);
    EXPECT_EQ(messages.Texts(), std::vector<std::string>{"Can't more than 5"});
}
