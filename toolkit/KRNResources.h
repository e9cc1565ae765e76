#pragma once

// The companion resource module KRNPANEL: a Qt binary resource file holding
// the dialog templates (forms), bitmaps, cursors and the string table, known
// by number. One module is current for the whole process, like the old
// framework's resource handle; loaded modules stay loaded.

#include <QByteArray>
#include <QCursor>
#include <QPixmap>
#include <QString>
#include <QStringList>

#include <string>

namespace KRNResources {

// Loads a module by file name and returns its handle, or null when the file is
// missing or damaged. A relative name is looked for beside the engine library,
// then beside the executable, then as given; a name ending in ".dll" that is
// not found is tried with ".rcc". Loading the same file twice returns the same
// handle. A file is damaged when its seal (format, version, length, SHA-256,
// see KRNModuleStamp.h) does not hold, or when it lacks its string table, its
// templates or any item its manifest names; Qt never reads a damaged file.
void* Load(const std::string& name);

// Why the last Load gave null, naming the file: "... was not found ..." or
// "the resource module "PATH" is damaged: what is wrong". Empty after a success.
QString LastProblem();

void* Current();
void SetCurrent(void* module);

// Items of the current module; empty (null pixmap, arrow cursor) when absent.
// Templates and bitmaps are read once and kept while their module is loaded
// (bitmaps until the application object goes): panels open again and again.
QString String(int id);
// A template: compiled (forms/<id>.krf, see KRNCompiledForm.h) or a Designer form (forms/<id>.ui).
QByteArray Form(int id);
QCursor Cursor(int id);

// Bitmap `id` for a screen of the given device pixel ratio. From 1.5 on it is
// the picture drawn at twice the pixels, marked with a ratio of 2 so that it
// covers the same logical size as the plain one; below, or when the module
// has no such picture, the plain one.
QPixmap Bitmap(int id, qreal devicePixelRatio = 1.0);

// Every item of the current module as its manifest names it ("strings.txt",
// "bitmaps/860.png", "bitmaps/860@2x.png", ...); empty when there is none.
QStringList Items();

// The file the current module came from (empty when there is none).
QString CurrentPath();

}  // namespace KRNResources

// The text of string `id` of the current module; empty when absent.
QString LoadResourceString(int id);
