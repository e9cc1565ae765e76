// Seals a packed resource module: reads the file Qt's rcc wrote and writes it
// again with the KRNPANEL stamp after it (see KRNModuleStamp.h), whole or not
// at all.
//
//   krn-modulestamp PACKED.rcc MODULE.rcc

#include "KRNModuleStamp.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: krn-modulestamp PACKED.rcc MODULE.rcc\n");
        return 2;
    }
    QFile in(QString::fromLocal8Bit(argv[1]));
    if (!in.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "krn-modulestamp: cannot read %s: %s\n", argv[1], qPrintable(in.errorString()));
        return 1;
    }
    const QByteArray packed = in.readAll();
    if (!packed.startsWith("qres")) {
        std::fprintf(stderr, "krn-modulestamp: %s is no binary resource file of rcc\n", argv[1]);
        return 1;
    }
    QSaveFile out(QString::fromLocal8Bit(argv[2]));
    const QByteArray sealed = KRNModuleStamp::Seal(packed);
    if (!out.open(QIODevice::WriteOnly) || out.write(sealed) != sealed.size() || !out.commit()) {
        std::fprintf(stderr, "krn-modulestamp: cannot write %s: %s\n", argv[2], qPrintable(out.errorString()));
        return 1;
    }
    return 0;
}
