#pragma once

#include "family_texts.h"
#include "store/model_bundle.h"

#include <QFile>

namespace lineara::test {

/// A frozen file of an old version, or what a step makes of it.
inline QString samplePath(const QString& name)
{
    return QStringLiteral(LINEARA_TEST_DATA) + u"/versions/"_qs + name + u".lineara"_qs;
}

inline QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

inline QByteArray sample(const QString& name)
{
    return contentsOf(samplePath(name));
}

/// The model of that version; empty if there is none.
inline ModelVersion modelOf(int version)
{
    StoreMetadata metadata;
    metadata.modelVersion = version;
    return ResourceBundle().modelFor(metadata).value_or(ModelVersion());
}

/// What fileWith() makes, as a file of another version.
inline QByteArray ofVersion(int version, QByteArray text)
{
    return text.replace("\"modelVersion\">14<", "\"modelVersion\">" + QByteArray::number(version) + "<");
}

} // namespace lineara::test
