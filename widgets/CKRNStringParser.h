#pragma once

// The number test of the panels' fields.

class CKRNStringParser {
public:
    virtual ~CKRNStringParser() = default;

    // True when text is one decimal number, optionally surrounded by blanks and
    // tabs. A text that reads as zero counts only when it starts with the digit
    // zero: "0" and "0.0" are numbers, "-0.0", "+0" and ".0" are not.
    bool IsNumber(const char* text) const;
};
