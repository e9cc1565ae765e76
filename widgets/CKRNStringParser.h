#pragma once

// The number test of the panels' fields.

class CKRNStringParser {
public:
    virtual ~CKRNStringParser() = default;

    // True when text is one decimal number, optionally surrounded by blanks and
    // tabs. A text that reads as zero counts only when it starts with the digit
    // zero: "0" and "0.0" are numbers, "-0.0", "+0" and ".0" are not.
    bool IsNumber(const char* text) const;
    // A number as above with no fraction ("3", "3.0", "1e3"), as a count
    // field takes it; `value` gets it.
    bool IsWholeNumber(const char* text, double& value) const;
};
