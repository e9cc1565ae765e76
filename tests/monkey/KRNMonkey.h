#pragma once

// A monkey at a machine screen: with no plan, it types rubbish and numbers of
// every size into the fields, leaves them, taps keys, presses Enter and
// Escape. Each step is written down as a krn-panel script line, so a walk
// that breaks a panel can be read and replayed by hand.
//
// The dice are seeded: one seed gives the same walk on every platform and
// standard library, so a failure found in CI is found again at a desk.

#include <QPointer>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class CKRNDialog;
class QLineEdit;

// splitmix64: tiny, and defined bit for bit (the standard distributions are not).
class KRNDice {
public:
    explicit KRNDice(std::uint64_t seed) : m_state(seed) {}
    std::uint64_t Next();
    // 0 .. n-1; 0 when n is not positive.
    int Below(int n);
    bool Chance(int percent) { return Below(100) < percent; }
    // [0, 1)
    double Unit();

private:
    std::uint64_t m_state;
};

// The seed of session `index` of a run seeded with `seed`.
std::uint64_t KRNSessionSeed(std::uint64_t seed, std::uint64_t index);

class KRNMonkey {
public:
    // `messageCount` tells how many messages the panels have shown so far;
    // `message(i)` gives one (the walk notes them under the step that caused them).
    KRNMonkey(std::uint64_t seed, std::function<std::size_t()> messageCount,
              std::function<std::string(std::size_t)> message);

    // Up to `steps` random steps on the topmost dialog, which must stay
    // `panel`. Enter and Escape must leave the panel open; a dialog that a
    // step opens over it gets a short walk of its own and is closed before
    // the step returns, so the walk never waits on a modal loop.
    void Walk(CKRNDialog* panel, int steps);
    // The last step: OK (true) or Cancel on the topmost dialog.
    bool Finish();

    KRNDice& Dice() { return m_dice; }
    // The steps so far as krn-panel script lines (notes start with '#').
    const std::vector<std::string>& Log() const { return m_log; }
    // What went wrong while walking (empty when nothing did).
    const std::vector<std::string>& Problems() const { return m_problems; }

private:
    void Step(CKRNDialog* top, int depth);
    // OK (at `okPercent` odds) or Cancel on `top`; true for OK.
    bool Close(CKRNDialog* top, int depth, int okPercent);
    // Runs `act`, which may open a dialog over `top`; such a dialog is walked
    // and closed from inside its own modal loop.
    void MayOpenDialog(CKRNDialog* top, int depth, const std::function<void()>& act);
    void WalkOpened(CKRNDialog* below, int depth);
    void Note(const std::string& line);
    void NoteMessages();

    KRNDice m_dice;
    std::function<std::size_t()> m_messageCount;
    std::function<std::string(std::size_t)> m_message;
    std::size_t m_nMessagesSeen = 0;
    QPointer<QLineEdit> m_lastEdit;
    std::vector<std::string> m_log;
    std::vector<std::string> m_problems;
};
