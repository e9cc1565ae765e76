#pragma once

// The seal on a resource module file: Qt's packed resources followed by a
// stamp of this module's own,
//
//   "KRNPANEL"   format name, 8 bytes
//   version      format version, 4 bytes big-endian
//   length       bytes of packed resources before the stamp, 8 bytes big-endian
//   SHA-256      of those bytes, 32 bytes
//
// The build seals the module; the engine checks the seal over the whole file
// before Qt reads a byte of it, so a damaged module is refused rather than
// handed to Qt's resource reader, which trusts the offsets it finds. Header
// only and Qt Core only, so that the build tool shares it.

#include <QByteArray>
#include <QByteArrayView>
#include <QCryptographicHash>
#include <QString>
#include <QtEndian>

#include <algorithm>

namespace KRNModuleStamp {

inline constexpr QByteArrayView kFormat("KRNPANEL");
inline constexpr quint32 kVersion = 1;
inline constexpr qsizetype kDigestSize = 32;
inline constexpr qsizetype kSize = 8 + 4 + 8 + kDigestSize;

// `resources` with the stamp after them.
inline QByteArray Seal(const QByteArray& resources) {
    QByteArray stamp(kSize - kDigestSize, '\0');
    char* p = stamp.data();
    std::copy(kFormat.begin(), kFormat.end(), p);
    qToBigEndian<quint32>(kVersion, p + 8);
    qToBigEndian<quint64>(static_cast<quint64>(resources.size()), p + 12);
    return resources + stamp + QCryptographicHash::hash(resources, QCryptographicHash::Sha256);
}

// What is wrong with the seal of `module`, in words; empty when the seal is
// whole and the packed resources are its first `resources` bytes.
inline QString Check(const QByteArray& module, qsizetype& resources) {
    resources = 0;
    if (module.size() < kSize)
        return QStringLiteral("it is %1 bytes long, too short to hold even its stamp (cut short?)").arg(module.size());
    const char* stamp = module.constData() + module.size() - kSize;
    if (QByteArrayView(stamp, 8) != kFormat)
        return QStringLiteral("it does not end in a KRNPANEL stamp (cut short, or no resource module)");
    const quint32 version = qFromBigEndian<quint32>(stamp + 8);
    if (version != kVersion)
        return QStringLiteral("its stamp says format version %1; this engine reads version %2").arg(version).arg(kVersion);
    const quint64 length = qFromBigEndian<quint64>(stamp + 12);
    const qsizetype held = module.size() - kSize;
    if (length != static_cast<quint64>(held))
        return QStringLiteral("it holds %1 bytes of resources where its stamp says %2").arg(held).arg(length);
    const QByteArrayView digest(stamp + kSize - kDigestSize, kDigestSize);
    if (QCryptographicHash::hash(QByteArrayView(module.constData(), held), QCryptographicHash::Sha256) != digest)
        return QStringLiteral("its contents do not match their SHA-256 checksum");
    resources = held;
    return {};
}

}  // namespace KRNModuleStamp
