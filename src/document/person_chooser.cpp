#include "person_chooser.h"

#include "model/object_context.h"
#include "personlist/search_words.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace lineara {

namespace {

/// More than any screen shows. To look for somebody who is allowed through all of a large family would keep the keys
/// waiting.
constexpr int rowsLookedAt = 100;

QString label(const Person& person)
{
    const QString name = person.name().value_or(QString());
    const QString shown = name.isEmpty() ? QCoreApplication::translate("PersonChooser", "Without a name") : name;
    const QString era = person.era();
    return era.isEmpty() ? shown : shown + QStringLiteral("  ") + era;
}

} // namespace

ChoosablePersons::ChoosablePersons(const Pool& pool, std::function<bool(Person&)> isAllowed)
    : pool_(pool), isAllowed_(std::move(isAllowed))
{
    filter(SearchWords());
}

void ChoosablePersons::filter(const SearchWords& words)
{
    beginResetModel();
    rows_.clear();
    for (const Person* const person : pool_.persons()) {
        if (words.find(*person))
            rows_.push_back(person->recordId());
    }
    endResetModel();
}

Person* ChoosablePersons::personAt(int row) const
{
    if (row < 0 || row >= rowCount())
        return nullptr;
    Person* const person = pool_.context().person(rows_[static_cast<std::size_t>(row)]);
    return person && isAllowed_(*person) ? person : nullptr;
}

int ChoosablePersons::firstAllowed() const
{
    const int end = std::min(rowCount(), rowsLookedAt);
    int row = 0;
    while (row < end && !personAt(row))
        ++row;
    return row < end ? row : -1;
}

int ChoosablePersons::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ChoosablePersons::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    const Person* const person = pool_.context().person(rows_[static_cast<std::size_t>(index.row())]);
    return person ? label(*person) : QString();
}

Qt::ItemFlags ChoosablePersons::flags(const QModelIndex& index) const
{
    return personAt(index.row()) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

PersonChooser::PersonChooser(QWidget& owner, const QString& title, const Pool& pool,
                             std::function<bool(Person&)> isAllowed, std::function<void(Person&)> chosen)
    : QDialog(&owner), persons_(pool, std::move(isAllowed)), chosen_(std::move(chosen)), search_(new QLineEdit),
      list_(new QListView), buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("personChooser"));
    setWindowTitle(title);
    resize(420, 480);
    search_->setPlaceholderText(QCoreApplication::translate("PersonChooser", "Search name, years or notes"));
    search_->installEventFilter(this);
    list_->setModel(&persons_);
    list_->setUniformItemSizes(true);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(search_);
    layout->addWidget(list_);
    layout->addWidget(buttons_);
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& words) { filter(words); });
    connect(list_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { showWhetherAllowed(); });
    connect(list_, &QListView::doubleClicked, this, [this] { choose(); });
    connect(buttons_, &QDialogButtonBox::accepted, this, [this] { choose(); });
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    filter(QString());
}

/// The list can be walked without leaving the search field.
bool PersonChooser::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(list_, event);
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void PersonChooser::filter(const QString& words)
{
    persons_.filter(SearchWords(words));
    if (const int row = persons_.firstAllowed(); row >= 0)
        list_->setCurrentIndex(persons_.index(row));
    showWhetherAllowed();
}

void PersonChooser::showWhetherAllowed()
{
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(persons_.personAt(list_->currentIndex().row()));
}

void PersonChooser::choose()
{
    Person* const person = persons_.personAt(list_->currentIndex().row());
    if (!person)
        return;
    accept();
    chosen_(*person);
}

} // namespace lineara
