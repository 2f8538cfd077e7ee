#include "pdf_file.h"

#include "deflater.h"

#include <QCryptographicHash>

#include <utility>

namespace lineara {

// The second line tells programs that carry files that this is no text.
PdfFile::PdfFile() : bytes_("%PDF-1.4\n%\xe2\xe3\xcf\xd3\n"), places_(1, -1) {}

int PdfFile::reserve()
{
    places_.push_back(-1);
    return static_cast<int>(places_.size()) - 1;
}

void PdfFile::put(int number, const QByteArray& object)
{
    places_[static_cast<std::size_t>(number)] = bytes_.size();
    bytes_ += QByteArray::number(number) + " 0 obj\n" + object + "\nendobj\n";
}

int PdfFile::add(const QByteArray& object)
{
    const int number = reserve();
    put(number, object);
    return number;
}

void PdfFile::putStream(int number, const QByteArray& entries, const QByteArray& bytes)
{
    put(number, "<<" + entries + "/Length " + QByteArray::number(bytes.size()) + ">>stream\n" + bytes + "\nendstream");
}

int PdfFile::addPacked(const QByteArray& entries, const QByteArray& bytes)
{
    const int number = reserve();
    putStream(number, entries + "/Filter/FlateDecode",
              deflated({bytes.data(), static_cast<std::size_t>(bytes.size())}));
    return number;
}

QByteArray PdfFile::finish(int catalogue, int information)
{
    const QByteArray sum = QCryptographicHash::hash(bytes_, QCryptographicHash::Md5).toHex();
    const qsizetype table = bytes_.size();
    const QByteArray count = QByteArray::number(static_cast<qsizetype>(places_.size()));
    bytes_ += "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (std::size_t number = 1; number < places_.size(); ++number)
        bytes_ += QByteArray::number(places_[number]).rightJustified(10, '0') + " 00000 n \n";
    bytes_ += "trailer\n<</Size " + count + "/Root " + reference(catalogue) + "/Info " + reference(information) +
              "/ID[<" + sum + "><" + sum + ">]>>\nstartxref\n" + QByteArray::number(table) + "\n%%EOF\n";
    return std::move(bytes_);
}

QByteArray PdfFile::string(const QString& text)
{
    QByteArray hex("<FEFF");
    for (const QChar letter : text)
        hex += QByteArray::number(letter.unicode(), 16).rightJustified(4, '0');
    return hex + '>';
}

} // namespace lineara
