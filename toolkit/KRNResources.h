#pragma once

// The companion resource module KRNPANEL: a Qt binary resource file holding
// the dialog templates (forms), bitmaps, cursors and the string table, known
// by number. One module is current for the whole process, like the old
// framework's resource handle; loaded modules stay loaded.

#include <QByteArray>
#include <QCursor>
#include <QPixmap>
#include <QString>

#include <string>

namespace KRNResources {

// Loads a module by file name and returns its handle, or null when the file is
// missing or is no resource module. A relative name is looked for beside the
// engine library, then beside the executable, then as given; a name ending in
// ".dll" that is not found is tried with ".rcc". Loading the same file twice
// returns the same handle.
void* Load(const std::string& name);

void* Current();
void SetCurrent(void* module);

// Items of the current module; empty (null pixmap, arrow cursor) when absent.
QString String(int id);
QByteArray Form(int id);
QPixmap Bitmap(int id);
QCursor Cursor(int id);

// The file the current module came from (empty when there is none).
QString CurrentPath();

}  // namespace KRNResources

// The text of string `id` of the current module; empty when absent.
QString LoadResourceString(int id);
