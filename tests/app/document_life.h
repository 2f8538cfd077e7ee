#pragma once

#include "document/test_files.h"
#include "document_controller.h"
#include "hand.h"
#include "hang_guard.h"
#include "opened_program.h"
#include "start_window.h"

#include "canvas/tree_view.h"
#include "document/document_window.h"
#include "document/recovery_copy.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QStandardPaths>

#include <gmock/gmock.h>

namespace lineara {

/// The program, with families that are opened into it, changed and closed.
class DocumentLife : public testing::Test
{
protected:
    DocumentLife() { Hand::bringToFront(program_.startWindow()); }

    DocumentController& documents() { return program_.delegate().documentController(); }
    std::size_t count() { return documents().documents().size(); }
    Document& document(std::size_t at = 0) { return *documents().documents()[at]; }

    QString family(const QString& name) const { return files_.save(name, *threeGenerations()); }
    void open(const QStringList& paths)
    {
        program_.delegate().open(paths);
        ASSERT_TRUE(waitUntil([this] { return !documents().isOpening(); }));
    }
    /// Opens a family and waits for its canvas.
    Document& opened(const QString& name)
    {
        open({family(name)});
        EXPECT_TRUE(waitUntil([this] { return count() > 0 && documents().documents().back()->treeView(); }));
        Document& document = *documents().documents().back();
        Hand::bringToFront(document.window());
        EXPECT_TRUE(waitUntil([&] { return documents().mainWindow() == &document.window(); }));
        return document;
    }
    static void rename(Document& document, const QString& name)
    {
        document.context().journal().begin(QStringLiteral("Edit Name"));
        document.context().person({106})->setName(name);
    }
    /// A family whose unsaved work was left when it made room for a new one; the path of its file.
    QString leftWork(const QString& name)
    {
        Document& left = opened(name);
        QString path = left.path();
        rename(left, QStringLiteral("Ann"));
        documents().openNew();
        EXPECT_TRUE(waitUntil([this] { return !documents().isLeaving(); }));
        return path;
    }
    /// Opens a file whose family takes the place of the only one.
    void openInstead(const QString& path)
    {
        open({path});
        ASSERT_TRUE(waitUntil([this] { return count() == 1 && document().treeView() && !documents().isLeaving(); }));
    }
    QMessageBox* box(const QString& name) const
    {
        auto* const found = dynamic_cast<QMessageBox*>(program_.dialog());
        return found && found->objectName() == name ? found : nullptr;
    }
    void answer(const QString& question, QMessageBox::StandardButton button)
    {
        ASSERT_TRUE(waitUntil([&] { return box(question); })) << question.toStdString();
        box(question)->button(button)->click();
    }
    void answer(const QString& question, const QString& button)
    {
        ASSERT_TRUE(waitUntil([&] { return box(question); })) << question.toStdString();
        for (QAbstractButton* const choice : box(question)->buttons()) {
            if (choice->text().remove(QLatin1Char('&')) == button) {
                choice->click();
                return;
            }
        }
        FAIL() << button.toStdString();
    }
    /// From now on there is no place where unsaved changes could be copied to.
    static void makeKeepingImpossible()
    {
        const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
        QDir(data + QStringLiteral("/recovery")).removeRecursively();
        EXPECT_TRUE(QDir().mkpath(data));
        QFile inTheWay(data + QStringLiteral("/recovery"));
        EXPECT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    }
    static QByteArray bytes(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    bool isStartWindowShown()
    {
        return waitUntil([this] { return program_.delegate().window().isVisible(); });
    }

    HangGuard guard_;
    const TestFiles files_;
    OpenedProgram program_;
};

} // namespace lineara
