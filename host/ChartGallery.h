#pragma once

// `krn-panel charts DIR`: a picture of every chart look, fed with a sample
// record's profiles, for checking the looks side by side.

class QString;

// Writes DIR/<class>.png for the profile chart and each controller look
// (640 x 400). Returns 0, or 2 with a message on stderr when DIR cannot be
// made or written or no QApplication runs.
int KRNChartGallery(const QString& dir);
