#pragma once

// The compiled dialog template: what krn-formcompile makes of a Designer form
// at build time and CKRNFormLoader reads at every opening. Only what the
// panels' forms use has a code here; the compiler refuses anything else, so a
// form that would lose a property fails the build instead of the screen.
//
// Layout, every number little-endian:
//   "KRNF" u16 version
//   u16 string count, each: u16 length in UTF-16 units, the units
//   u16 palette count, each: u8 entry count, each: u8 group, u8 role, u32 ARGB
//   u16 font count, each: u16 family (string, kNone for none), i16 point size
//                         (-1 for none), u8 bold, u8 italic, u8 underline
//                         (0 unset, 1 false, 2 true)
//   the root widget: u8 class, [u16 class name, u8 base class when custom],
//                    u16 object name, u8 property count, each: u8 property,
//                    its value; u8 raise count, each u16 child name;
//                    u16 child count, the children the same way
//   u16 tab stop count, each: u16 object name (Designer's tab order)

#include <cstdint>

namespace KRNCompiledForm {

constexpr char kMagic[4] = {'K', 'R', 'N', 'F'};
constexpr std::uint16_t kVersion = 1;
constexpr std::uint16_t kNone = 0xffff;

// The classes a template is built from; a panel's own class names one of
// these as its base.
enum Class : std::uint8_t { Widget = 0, Label = 1, LineEdit = 2, PushButton = 3, Custom = 255 };

// Palette groups: the colours for every state, then those that differ when disabled.
enum Group : std::uint8_t { AllGroups = 0, Disabled = 1 };

// Properties and the value that follows each code.
enum Property : std::uint8_t {
    Geometry = 1,           // i32 x, y, width, height (the root takes the size only)
    Text = 2,               // u16 string
    WindowTitle = 3,        // u16 string
    ToolTip = 4,            // u16 string
    AccessibleName = 5,     // u16 string
    AccessibleDescription = 6,  // u16 string
    Font = 7,               // u16 font
    Palette = 8,            // u16 palette (the krnPalette of the form)
    Alignment = 9,          // u32 Qt::Alignment
    FrameShape = 10,        // u32 QFrame::Shape
    FrameShadow = 11,       // u32 QFrame::Shadow
    Indent = 12,            // i32
    LineWidth = 13,         // i32
    Margin = 14,            // i32
    MaxLength = 15,         // i32
    AutoFillBackground = 16,  // u8
    Enabled = 17,           // u8
    WordWrap = 18,          // u8
    ReadOnly = 19,          // u8
    Frame = 20,             // u8
    Flat = 21,              // u8
    AutoDefault = 22,       // u8
    Default = 23,           // u8
    Checkable = 24,         // u8
    Checked = 25,           // u8
};

}  // namespace KRNCompiledForm
