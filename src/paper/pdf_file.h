#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace lineara {

/// The objects of a PDF file, and the table of where they stand. Nothing in it hangs on the clock: the file's identity
/// is a sum of what is in it.
class PdfFile
{
public:
    PdfFile();

    /// A number for an object that is written later.
    int reserve();
    void put(int number, const QByteArray& object);
    int add(const QByteArray& object);
    /// `entries` are those of the stream's dictionary but for its length; `bytes` are as these say.
    void putStream(int number, const QByteArray& entries, const QByteArray& bytes);
    /// Compresses the bytes.
    int addPacked(const QByteArray& entries, const QByteArray& bytes);

    /// The whole file; nothing can be added any more.
    QByteArray finish(int catalogue, int information);

    static QByteArray reference(int number) { return QByteArray::number(number) + " 0 R"; }
    static QByteArray string(const QString& text);

private:
    QByteArray bytes_;
    std::vector<qsizetype> places_; // of objects, by number; -1 until put
};

} // namespace lineara
