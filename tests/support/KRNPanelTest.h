#pragma once

// Helpers for tests that read like a person at the screen: open a panel (or
// any dialog of the module), then type, leave, click and read fields by their
// numbers while it is open.

#include "KRNMessageCapture.h"
#include "KRNPanelDriver.h"

#include <QString>

#include "KRNMachineData.h"

#include <functional>
#include <string>
#include <vector>

class CKRNDialog;

namespace KRNTest {

// The visible control `id` of the topmost panel dialog that fits `want`
// (the shown page first, then its frame); fails the test when absent.
QWidget* Field(int id, KRNDriver::Want want = KRNDriver::Want::Any);
// Its text, blanks at both ends removed.
std::string Text(int id);
bool Enabled(int id);
void Type(int id, const QString& text);
void Keys(int id, const QString& text);
void Leave(int id);
void Click(int id);
void PressKey(int qtKey);
// OK or Cancel on the topmost dialog.
void OK();
void Cancel();

// A value with `decimals` places and a full stop, as the screens print it.
std::string Fixed(double value, int decimals);
// True when the visible static `id` shows bitmap `bitmapId` of the module.
bool ShowsBitmap(int id, int bitmapId);

// Runs `whileOpen` inside the modal loop started by `open`; whatever is left
// open is cancelled.
void WhileOpen(const std::function<void()>& open, const std::function<void()>& whileOpen);

// What a panel run left: the dialog's result, the frame's record afterwards
// (what the interface takes after OK) and the messages shown, in order.
struct Session {
    int result = 0;
    CKRNMachineData record;
    std::vector<std::string> messages;
};

// Opens a `Frame` modally on `record`, runs `steps` while it is open (with
// the frame, for tests that look inside it) and returns the session.
template <class Frame>
Session OpenPanel(const CKRNMachineData& record, const std::function<void(Frame&)>& steps) {
    KRNMessageCapture messages;
    Frame frame(record);
    Session s;
    WhileOpen([&] { s.result = frame.DoModal(); }, [&] { steps(frame); });
    s.record = frame.GetMachineData();
    s.messages = messages.Texts();
    return s;
}
template <class Frame>
Session OpenPanel(const CKRNMachineData& record, const std::function<void()>& steps) {
    return OpenPanel<Frame>(record, std::function<void(Frame&)>([&](Frame&) { steps(); }));
}

}  // namespace KRNTest
