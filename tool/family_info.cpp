#include "family_info.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace lineara::tool {

namespace {

qint64 number(std::size_t count)
{
    return static_cast<qint64>(count);
}

QString line(const QString& what, std::size_t count)
{
    return u"%1: %2\n"_qs.arg(what).arg(count);
}

QJsonObject importAsJson(const ImportReport& report)
{
    return {{u"families"_qs, number(report.families)},
            {u"linksRefused"_qs, number(report.refusedLinks)},
            {u"linesKept"_qs, number(report.keptLines)},
            {u"linesUnreadable"_qs, number(report.unreadableLines)},
            {u"linesNotTaken"_qs, number(report.notTaken)}};
}

} // namespace

FamilyInfo infoOf(const OpenedFamily& family)
{
    const Pool& pool = *family.pool;
    FamilyInfo info;
    info.persons = pool.persons().size();
    info.partnerLinks = pool.partners().size();
    info.offspringLinks = pool.offspring().size();
    for (const auto& row : pool.generations())
        info.rowSizes.push_back(row.size());
    for (const Person* person : pool.persons()) {
        if (!person->parents().empty() || !person->children().empty() || !person->partners().empty())
            continue;
        ++info.unlinked;
        if (person->name())
            info.unlinkedNames << *person->name();
    }
    info.import = family.importReport;
    return info;
}

QString asText(const FamilyInfo& info)
{
    QString text = line(u"persons"_qs, info.persons) + line(u"partner links"_qs, info.partnerLinks) +
                   line(u"offspring links"_qs, info.offspringLinks) +
                   line(u"rows"_qs, info.rowSizes.empty() ? 0 : info.rowSizes.size() - 1);
    for (std::size_t row = info.rowSizes.size(); row-- > 1;)
        text += line(u"  row %1"_qs.arg(row), info.rowSizes[row]);
    text += line(u"  in no row"_qs, info.rowSizes.empty() ? 0 : info.rowSizes.front());
    text += line(u"unlinked persons"_qs, info.unlinked);
    for (const QString& name : info.unlinkedNames)
        text += u"  "_qs + name.simplified() + u'\n';
    if (info.import) {
        text += line(u"families read"_qs, info.import->families) +
                line(u"links refused"_qs, info.import->refusedLinks) +
                line(u"lines kept beside"_qs, info.import->keptLines) +
                line(u"lines unreadable"_qs, info.import->unreadableLines) +
                line(u"lines not taken"_qs, info.import->notTaken);
    }
    return text;
}

QString asJson(const FamilyInfo& info)
{
    QJsonArray rows;
    for (std::size_t row = 0; row < info.rowSizes.size(); ++row)
        rows.append(QJsonObject{{u"row"_qs, number(row)}, {u"persons"_qs, number(info.rowSizes[row])}});
    QJsonObject object{{u"persons"_qs, number(info.persons)},
                       {u"links"_qs, QJsonObject{{u"partner"_qs, number(info.partnerLinks)},
                                                 {u"offspring"_qs, number(info.offspringLinks)}}},
                       {u"rows"_qs, rows},
                       {u"unlinked"_qs, number(info.unlinked)},
                       {u"unlinkedNames"_qs, QJsonArray::fromStringList(info.unlinkedNames)}};
    if (info.import)
        object.insert(u"import"_qs, importAsJson(*info.import));
    return QString::fromUtf8(QJsonDocument(object).toJson());
}

} // namespace lineara::tool
