#pragma once

// A page key of the hydraulic Mitsubishi controller: a flat coloured key that
// stands out raised and yellow while its page is on the screen and sits
// sunken and white otherwise. Held down, it is framed in the inverse of its
// resting colour.

#include <QPushButton>

#include <cstdint>

class CKRNMachineMITSUBISH_ColorButton : public QPushButton {
    Q_OBJECT
public:
    explicit CKRNMachineMITSUBISH_ColorButton(QWidget* parent = nullptr) : QPushButton(parent) {}

    // Lets the forms name the class; called before a template with these keys loads.
    static void RegisterWithForms();

    // Colour references (0x00BBGGRR).
    std::uint32_t m_crText = 0;
    std::uint32_t m_crSelected = 0;
    std::uint32_t m_crNormal = 0;
    bool m_bSelected = false;  // the key of the page on the screen

    void SetColors(std::uint32_t text, std::uint32_t selected, std::uint32_t normal);
    void SetSelected(bool selected);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_bWasDown = false;  // the last paint showed the key held down
};
