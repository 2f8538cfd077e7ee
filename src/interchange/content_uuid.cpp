#include "content_uuid.h"

#include <QCryptographicHash>

#include <algorithm>

namespace lineara {

QUuid uuidOf(const QByteArray& bytes, const Progress& progress)
{
    constexpr qsizetype pieceSize = 1024 * 1024;
    static const QUuid importedFamilies(QStringLiteral("5f4a6d51-27b3-4c0e-9d6a-2d5d0a1c7e90"));
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(importedFamilies.toRfc4122());
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize) {
        if (!progress.goesOn(static_cast<double>(at) / static_cast<double>(bytes.size())))
            break;
        hash.addData(QByteArrayView(bytes).sliced(at, std::min(pieceSize, bytes.size() - at)));
    }
    auto uuid = QUuid::fromRfc4122(QByteArrayView(hash.result()).first(16));
    uuid.data3 = static_cast<ushort>((uuid.data3 & 0x0FFF) | 0x5000);
    uuid.data4[0] = static_cast<uchar>((uuid.data4[0] & 0x3F) | 0x80);
    return uuid;
}

} // namespace lineara
