#pragma once

// How a panel joins the controller table: its modal run and, for panels a
// host may keep open without a modal loop, its hosted form.

#include "CMachineDialogHolder.h"
#include "KRNControlIds.h"

#include <memory>

// Runs a frame modally on a copy of `data`; on OK `data` becomes the frame's record.
template <class Frame>
bool KRNRunModalPanel(CKRNMachineData& data) {
    Frame frame(data);
    if (frame.DoModal() != IDOK) return false;
    data = frame.GetMachineData();
    return true;
}

// The same after `prepare` has seen the record, for panels that settle
// something before their frame is built (a template set by language).
template <class Frame, void (*Prepare)(const CKRNMachineData&)>
bool KRNRunPreparedPanel(CKRNMachineData& data) {
    Prepare(data);
    return KRNRunModalPanel<Frame>(data);
}

// A frame embedded in the entry interface's holder, opened as a window
// without a parent; opening it again re-uses it with the new record.
template <class Frame>
class CKRNHostedFrame : public IKRNHostedPanel {
public:
    void SetMachineData(const CKRNMachineData& data) override { m_Frame.m_MachineData = data; }
    CKRNMachineData GetMachineData() const override { return m_Frame.GetMachineData(); }
    void SetHost(CKRNProMachineInterface* owner) override { m_Frame.SetHost(owner); }
    bool CreateHosted() override {
        if (!m_Frame.IsCreated()) {
            if (!m_Frame.Create(nullptr, false)) return false;
        } else {
            m_Frame.InitDialogAgain();
        }
        m_Frame.show();
        m_Frame.raise();
        return true;
    }
    Frame& GetFrame() { return m_Frame; }

private:
    Frame m_Frame;
};

template <class Frame>
std::unique_ptr<IKRNHostedPanel> KRNCreateHostedPanel() {
    return std::make_unique<CKRNHostedFrame<Frame>>();
}
