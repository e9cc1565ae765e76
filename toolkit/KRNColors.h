#pragma once

// Colours of the machine screens are given as the old framework's colour
// references: 0x00BBGGRR (red in the low byte).

#include <QColor>

#include <cstdint>

inline QColor KRNColorRef(std::uint32_t ref) {
    return QColor(static_cast<int>(ref & 0xFF), static_cast<int>((ref >> 8) & 0xFF), static_cast<int>((ref >> 16) & 0xFF));
}

constexpr std::uint32_t KRNRGB(int r, int g, int b) {
    return static_cast<std::uint32_t>(r & 0xFF) | (static_cast<std::uint32_t>(g & 0xFF) << 8) |
           (static_cast<std::uint32_t>(b & 0xFF) << 16);
}
