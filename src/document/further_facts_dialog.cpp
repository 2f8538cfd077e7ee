#include "further_facts_dialog.h"

#include "interchange/further_facts.h"
#include "model/person.h"
#include "model/source_record.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace lineara {

namespace {

struct FurtherFactsTexts
{
    Q_DECLARE_TR_FUNCTIONS(FurtherFacts)
};

QTreeWidget* makeList(const std::vector<FurtherFact>& facts)
{
    auto* const list = new QTreeWidget;
    list->setObjectName(QStringLiteral("furtherFacts"));
    list->setAccessibleName(FurtherFactsTexts::tr("Further Facts"));
    list->setHeaderLabels({FurtherFactsTexts::tr("Fact"), FurtherFactsTexts::tr("In the Imported File")});
    list->setWordWrap(true);
    list->setAlternatingRowColors(true);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    std::vector<QTreeWidgetItem*> above; // by depth
    for (const FurtherFact& fact : facts) {
        above.resize(std::min(above.size(), static_cast<std::size_t>(fact.depth)));
        auto* const item = above.empty() ? new QTreeWidgetItem(list) : new QTreeWidgetItem(above.back());
        item->setText(0, fact.label);
        item->setText(1, fact.value);
        item->setToolTip(1, fact.value);
        above.push_back(item);
    }
    list->expandAll();
    list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    return list;
}

QString heading(const Person& person, const SourceOrigin& origin)
{
    const QString name = person.name().value_or(FurtherFactsTexts::tr("a person without a name"));
    return FurtherFactsTexts::tr("What “%1” tells of %2 in line %3 and below, beyond what is shown in the list. It is "
                                 "kept as it is, and given back when the family is exported.")
        .arg(origin.file, name)
        .arg(origin.line);
}

} // namespace

int countFurtherFacts(const Person& person)
{
    const SourceRecord* const source = person.source();
    return source ? static_cast<int>(furtherFacts(source->text()).size()) : 0;
}

void showFurtherFacts(QWidget& owner, const Person& person)
{
    const SourceRecord* const source = person.source();
    if (!source)
        return;
    auto* const dialog = new QDialog(&owner);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("furtherFactsDialog"));
    dialog->setWindowTitle(FurtherFactsTexts::tr("Further Facts"));
    dialog->resize(640, 480);
    auto* const text = new QLabel(heading(person, source->origin()));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    auto* const column = new QVBoxLayout(dialog);
    column->addWidget(text);
    column->addWidget(makeList(furtherFacts(source->text())), 1);
    column->addWidget(buttons);
    dialog->show();
}

} // namespace lineara
