#pragma once

// What a panel shows, as JSON: every page (the frame first, then the pages in
// the order of the frame's keys) with its visible numbered controls, sorted by
// number, so a tester or a script in any language reads a screen without
// parsing columns.
//
// {"pages": [{"template": 31157, "class": "CMACHINE_...", "frame": true,
//             "shown": true, "controls": [{"id": 1123, "kind": "edit",
//             "text": " 45.00", "enabled": true, "readOnly": false,
//             "accessibleName": "Speed, stage 1"}, ...]}, ...]}
//
// kind is edit, label, picture (a static showing a bitmap), button, check,
// radio, chart or other. accessibleName is what a screen reader announces:
// the name the form gives the control, else a label's or a key's caption.

#include <QByteArray>

class CKRNDialog;

QByteArray KRNDumpJson(CKRNDialog* panel);
