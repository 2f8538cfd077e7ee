#include "further_facts_dialog.h"

#include "elements/shortened_text.h"
#include "further_facts_list.h"
#include "model/person.h"
#include "model/source_record.h"
#include "personlist/long_words.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStringBuilder>
#include <QVBoxLayout>

namespace lineara {

namespace {

struct FurtherFactsTexts
{
    Q_DECLARE_TR_FUNCTIONS(FurtherFacts)
};

constexpr int width = 640;
constexpr int leastWidth = 400;
constexpr int listHeight = 360;
constexpr int paneHeight = 110; // five lines or so
constexpr qsizetype mostInThePane = 200'000;

QString heading(const Person& person, const SourceOrigin& origin)
{
    const QString name = person.name().value_or(FurtherFactsTexts::tr("a person without a name"));
    return FurtherFactsTexts::tr("What “%1” tells of %2, in line %3 and below and in the records of families, beyond "
                                 "what is shown in the list. It is kept, and given back when the family is exported, "
                                 "as far as it still holds.")
        .arg(toldName(origin.file), toldName(name), QString::number(origin.line));
}

/// The narrower it is, the more lines its heading takes: never those of the list.
class FurtherFactsDialog : public QDialog
{
public:
    explicit FurtherFactsDialog(QWidget& owner) : QDialog(&owner) { setMinimumWidth(leastWidth); }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QDialog::resizeEvent(event);
        setMinimumHeight(layout()->totalMinimumHeightForWidth(width()));
    }
};

/// A text of megabytes would keep its reader waiting at each step through the list.
QString readable(const QString& text)
{
    if (text.size() <= mostInThePane)
        return text;
    const qsizetype end = text[mostInThePane - 1].isHighSurrogate() ? mostInThePane - 1 : mostInThePane;
    const QString rest = QLocale().toString(text.size() - end);
    return text.first(end) % u'\n' %
           FurtherFactsTexts::tr("… and %1 more characters. Copying the fact from the list takes them all.").arg(rest);
}

/// The current fact of the list, to be read and copied in part.
QPlainTextEdit* paneBelow(const FurtherFactsList& list)
{
    auto* const pane = new QPlainTextEdit;
    pane->setObjectName(QStringLiteral("currentFact"));
    pane->setAccessibleName(FurtherFactsTexts::tr("The Selected Fact"));
    pane->setReadOnly(true);
    pane->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    pane->setTabChangesFocus(true);
    breakLongWords(*pane);
    const auto show = [pane, &list] { showText(*pane, readable(list.currentText())); };
    QObject::connect(&list, &QTreeWidget::currentItemChanged, pane, show);
    show();
    return pane;
}

QSplitter* splitBetween(QWidget* list, QWidget* pane)
{
    auto* const splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(list);
    splitter->addWidget(pane);
    splitter->setStretchFactor(0, 1);
    splitter->setSizes({listHeight, paneHeight});
    return splitter;
}

} // namespace

void showFurtherFacts(QWidget& owner, const Person& person, const std::vector<FurtherFact>& facts)
{
    const SourceRecord* const source = person.source();
    if (!source || facts.empty())
        return;
    auto* const dialog = new FurtherFactsDialog(owner);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("furtherFactsDialog"));
    dialog->setWindowTitle(FurtherFactsTexts::tr("Further Facts"));
    dialog->resize(width, listHeight + 2 * paneHeight);
    auto* const text = new QLabel(heading(person, source->origin()));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::close);
    auto* const list = new FurtherFactsList(facts);
    auto* const column = new QVBoxLayout(dialog);
    column->setSizeConstraint(QLayout::SetNoConstraint); // the dialog has its own
    column->addWidget(text);
    column->addWidget(splitBetween(list, paneBelow(*list)), 1);
    column->addWidget(buttons);
    list->setFocus();
    dialog->show();
}

} // namespace lineara
