#include "further_facts_dialog.h"

#include "further_facts_list.h"
#include "model/person.h"
#include "model/source_record.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace lineara {

namespace {

struct FurtherFactsTexts
{
    Q_DECLARE_TR_FUNCTIONS(FurtherFacts)
};

QString heading(const Person& person, const SourceOrigin& origin)
{
    const QString name = person.name().value_or(FurtherFactsTexts::tr("a person without a name"));
    return FurtherFactsTexts::tr("What “%1” tells of %2, in line %3 and below and in the records of families, beyond "
                                 "what is shown in the list. It is kept, and given back when the family is exported, "
                                 "as far as it still holds.")
        .arg(origin.file, name, QString::number(origin.line));
}

} // namespace

void showFurtherFacts(QWidget& owner, const Person& person, const std::vector<FurtherFact>& facts)
{
    const SourceRecord* const source = person.source();
    if (!source || facts.empty())
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
    column->addWidget(new FurtherFactsList(facts), 1);
    column->addWidget(buttons);
    dialog->show();
}

} // namespace lineara
