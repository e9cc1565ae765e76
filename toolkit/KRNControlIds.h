#pragma once

// Controls are known by number, as in the resource module's templates. In a
// form each control carries its number as its object name: IDC_<n>, or IDOK
// and IDCANCEL; statics without a number are IDC_STATIC, IDC_STATIC_2, ...

#include <QString>

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDC_STATIC = -1;

// The object name of control `id` ("IDC_1123", "IDOK", "IDCANCEL", "IDC_STATIC").
QString KRNControlName(int id);
// The number an object name stands for; IDC_STATIC for unnumbered statics and
// for names that are no control name (those give `ok` false).
int KRNControlId(const QString& objectName, bool* ok = nullptr);
