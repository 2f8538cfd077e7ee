#include "person_pictures.h"

#include "gedcom_pointer.h"
#include "import_texts.h"
#include "media_files.h"
#include "node_ledger.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

namespace lineara {
namespace {

/// Whether the bytes are of a format in which pictures of people are kept.
bool isPicture(const QByteArray& bytes)
{
    static const std::array<QByteArray, 6> starts = {QByteArrayLiteral("\x89PNG"),  QByteArrayLiteral("\xFF\xD8\xFF"),
                                                     QByteArrayLiteral("GIF8"),     QByteArrayLiteral("BM"),
                                                     QByteArrayLiteral("II\x2A\0"), QByteArrayLiteral("MM\0\x2A")};
    const bool isWebPicture = bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP";
    return isWebPicture ||
           std::any_of(starts.begin(), starts.end(), [&](const QByteArray& start) { return bytes.startsWith(start); });
}

/// Names of the files of an object that may be pictures, and the lines they stand in.
std::vector<std::pair<NodeIndex, QString>> pictureFiles(const GedcomTree& tree, NodeIndex object)
{
    std::vector<std::pair<NodeIndex, QString>> files;
    for (ObjectFile& file : filesOf(tree, object)) {
        if (file.mayBePicture)
            files.emplace_back(file.line, std::move(file.name));
    }
    return files;
}

} // namespace

bool mayBePicture(const QString& form, const QString& name)
{
    static const QStringList endings = {QStringLiteral("jpg"),  QStringLiteral("jpeg"), QStringLiteral("png"),
                                        QStringLiteral("gif"),  QStringLiteral("bmp"),  QStringLiteral("tif"),
                                        QStringLiteral("tiff"), QStringLiteral("webp"), QStringLiteral("photo")};
    const QString kind = form.trimmed().toLower();
    if (kind.startsWith(QStringLiteral("image/")) || endings.contains(kind))
        return true;
    return endings.contains(QFileInfo(name).suffix().toLower());
}

bool isMarkedPrimary(const GedcomTree& tree, NodeIndex object)
{
    for (const std::string_view tag : {"_PRIM", "_PRIMARY"}) {
        const auto mark = tree.child(object, tag);
        if (mark && tree[*mark].line.value.starts_with('Y'))
            return true;
    }
    return false;
}

/// The format stands below the file in newer versions, beside it in older ones.
std::vector<ObjectFile> filesOf(const GedcomTree& tree, NodeIndex object)
{
    std::vector<ObjectFile> files;
    const auto common = tree.child(object, "FORM"); // once, as there may be thousands of files
    for (const NodeIndex line : tree.children(object)) {
        if (tree[line].line.tag != "FILE")
            continue;
        const auto own = tree.child(line, "FORM");
        const auto form = own ? own : common;
        const QString name = tree.text(line).trimmed();
        files.push_back({line, name, !name.isEmpty() && mayBePicture(form ? tree.text(*form) : QString(), name)});
    }
    return files;
}

bool refusesPictures(const GedcomLine& line)
{
    return line.tag == "_PHOTO" && line.isPointer && line.value == pointsAtNobody;
}

const std::vector<PersonPictures::Candidate>& PersonPictures::filesOf(RecordIndex object)
{
    const auto [known, isNew] = objects_.try_emplace(object);
    if (isNew) {
        const GedcomTree tree(records_[object], records_.isVersionSeven());
        const bool isPrimary = isMarkedPrimary(tree, 0);
        for (const auto& [line, name] : pictureFiles(tree, 0)) {
            if (known->second.size() < mostTried)
                known->second.push_back({0, 0, name, isPrimary});
        }
    }
    return known->second;
}

std::vector<PersonPictures::Candidate> PersonPictures::candidates(const GedcomTree& tree, NodeLedger& ledger,
                                                                  const std::vector<NodeIndex>& lines)
{
    std::vector<Candidate> found;
    for (const NodeIndex line : lines) {
        const bool isPrimary = isMarkedPrimary(tree, line) || tree[line].line.tag == "_PHOTO";
        if (!tree[line].line.isPointer) {
            for (const auto& [file, name] : pictureFiles(tree, line))
                found.push_back({line, file, name, isPrimary});
        } else if (const auto record = followPointer(records_, tree, ledger, line, {"OBJE"})) {
            for (const Candidate& file : filesOf(*record))
                found.push_back({line, line, file.name, isPrimary || file.isPrimary});
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const Candidate& a, const Candidate& b) { return a.isPrimary && !b.isPrimary; });
    if (found.size() > mostTried)
        found.erase(found.begin() + mostTried, found.end());
    return found;
}

PersonPictures::Found PersonPictures::readFile(const QString& name)
{
    const auto refusal = [](const QString& reason) { return Found{{}, reason, {}, {}}; };
    if (read_ >= mostBytes)
        return refusal(ImportTexts::tr("the pictures are too large in all"));
    const auto file = files_.read(name);
    if (file.failed()) {
        // A file that is too large was read all the same, as far as it might have been taken.
        read_ += file.failure().message == mediaTooLarge().message ? MediaFiles::mostBytes : 0;
        return refusal(file.failure().message);
    }
    const auto& [bytes, place] = file.value();
    read_ += bytes.size();
    if (!isPicture(bytes))
        return refusal(ImportTexts::tr("the file is no picture of a known kind"));
    return {bytes, {}, place, std::make_shared<TakenPicture>(TakenPicture{name, hashOf(bytes)})};
}

const PersonPictures::Found& PersonPictures::find(const QString& name)
{
    const auto [known, isNew] = found_.try_emplace(name);
    if (isNew)
        known->second = readFile(name);
    return known->second;
}

PictureReading PersonPictures::read(const GedcomTree& tree, NodeLedger& ledger, const std::vector<NodeIndex>& lines)
{
    const auto isRefusal = [&tree](NodeIndex line) { return refusesPictures(tree[line].line); };
    if (const auto refusal = std::ranges::find_if(lines, isRefusal); refusal != lines.end()) {
        ledger.take(*refusal);
        return {{}, noneThere_};
    }
    const auto named = candidates(tree, ledger, lines);
    for (const Candidate& candidate : named) {
        const Found& found = find(candidate.name);
        const bool isTooMuch = found.bytes.size() > mostBytes - handedOut_;
        if (found.reason.isEmpty() && !isTooMuch) {
            ledger.take(candidate.line);
            ledger.take(candidate.told);
            handedOut_ += found.bytes.size();
            ++taken_;
            takenPlaces_.insert(found.place);
            return {found.bytes, found.taken};
        }
        const QString why = isTooMuch ? ImportTexts::tr("the pictures are too large in all") : found.reason;
        ledger.reject(
            candidate.told,
            ImportTexts::tr("the picture %1 can't be taken, as %2").arg(inQuotes(candidate.name.toStdString()), why));
    }
    return {{}, named.empty() ? nullptr : noneThere_};
}

QStringList PersonPictures::leftFiles() const
{
    QStringList left;
    auto taken = takenPlaces_;
    for (const QString& file : files_.ownFiles()) {
        // Of two files of one name only the first is ever found.
        if (taken.erase(file) == 0)
            left << file;
    }
    return left;
}

} // namespace lineara
