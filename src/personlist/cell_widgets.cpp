#include "cell_widgets.h"

#include "cell_texts.h"
#include "list_colours.h"
#include "thumbnails.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace lineara {

namespace {

/// Of a row that is closing, only what is shown fades: nothing moves up where a button went.
void keepPlace(QWidget& button)
{
    QSizePolicy policy = button.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    button.setSizePolicy(policy);
}

} // namespace

QPalette lightCellPalette()
{
    QPalette light(QColor::fromRgbF(0.93f, 0.93f, 0.93f), colours::expandedGround());
    light.setColor(QPalette::PlaceholderText, colours::faintText());
    return light;
}

QPushButton* makePicButton()
{
    auto* const button = new QPushButton;
    button->setObjectName(QStringLiteral("picButton"));
    keepPlace(*button);
    button->setIconSize({thumbnailSide, thumbnailSide});
    button->setFixedSize(thumbnailSide + 8, thumbnailSide + 8);
    return button;
}

QPushButton* makePicRemoveButton()
{
    auto* const button = new QPushButton(CellTexts::tr("Remove Picture"));
    button->setObjectName(QStringLiteral("picRemoveButton"));
    keepPlace(*button);
    return button;
}

QPushButton* makeFactsButton()
{
    auto* const button = new QPushButton;
    button->setObjectName(QStringLiteral("factsButton"));
    button->setFlat(true);
    button->setCursor(Qt::PointingHandCursor);
    QPalette palette = button->palette();
    palette.setColor(QPalette::ButtonText, colours::linkText());
    button->setPalette(palette);
    button->hide();
    return button;
}

QLabel* makeCaption(const QString& caption)
{
    auto* const label = new QLabel(caption);
    label->setFixedHeight(QLineEdit().sizeHint().height());
    QFont font;
    font.setPixelSize(12);
    label->setFont(font);
    QPalette palette;
    palette.setColor(QPalette::WindowText, colours::faintText());
    label->setPalette(palette);
    return label;
}

} // namespace lineara
