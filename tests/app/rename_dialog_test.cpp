#include "app/rename_dialog.h"
#include "frame/registry_store.h"
#include "support/named_rows.h"
#include "support/private_settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace zunbrix;
using zunbrix::testing::appendNamedRows;
using zunbrix::testing::namesOf;

namespace {

const QString kKey = QStringLiteral("Software\\Zunbrix");

// One application for all tests, ended before the program's own statics go.
class OffscreenApplication : public ::testing::Environment {
public:
    void SetUp() override
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(argc_, argv_);
    }
    void TearDown() override { application_.reset(); }

private:
    int argc_ = 1;
    char name_[19] = "rename_dialog_test";
    char* argv_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

const auto* const kApplication = ::testing::AddGlobalTestEnvironment(new OffscreenApplication);

class RenameDialogTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        view.setModel(&list);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setSelectionMode(QAbstractItemView::MultiSelection);
        CRenameDialog::installUndo(view, list, state);
        view.show();
    }

    // Opens the dialog as the main window does: a new one each time, which reads the stored settings.
    CRenameDialog* open(Language language = Language::English)
    {
        dialog = new CRenameDialog(list, state, &view, language);
        dialog->show();
        return dialog;
    }

    template <typename Widget>
    Widget* control(const char* name)
    {
        Widget* widget = dialog->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    void type(const char* field, const QString& text)
    {
        QLineEdit* edit = control<QLineEdit>(field);
        edit->clear();
        QTest::keyClicks(edit, text);
    }

    void press(const char* button) { QTest::mouseClick(control<QPushButton>(button), Qt::LeftButton); }

    QList<int> selectedRows() const
    {
        QList<int> rows;
        for (const QModelIndex& index : view.selectionModel()->selectedRows())
            rows << index.row();
        return rows;
    }

    QString storedString(const char* name) const
    {
        QString value;
        EXPECT_TRUE(RegistryStore::GetString(kKey, QLatin1String(name), value)) << name;
        return value;
    }

    quint32 storedNumber(const char* name) const
    {
        quint32 value = 99;
        EXPECT_TRUE(RegistryStore::GetDword(kKey, QLatin1String(name), value)) << name;
        return value;
    }

    // The one refusal box the dialog or the list shows, closed once read.
    QString refusalText()
    {
        QString text;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible()) {
                text = box->text();
                box->close();
            }
        return text;
    }

    zunbrix::testing::PrivateSettings settings;
    GameList list;
    SearchState state;
    QTableView view;
    QPointer<CRenameDialog> dialog;
};

TEST_F(RenameDialogTest, ReadsTheSettingsAtOpenAndWritesThemAtClose)
{
    open();
    EXPECT_EQ(control<QLineEdit>("searchEdit")->text(), QStringLiteral("^\\d+\\."));
    EXPECT_EQ(control<QLineEdit>("replaceEdit")->text(), QString());
    EXPECT_TRUE(control<QRadioButton>("plainRadio")->isChecked());
    EXPECT_FALSE(control<QCheckBox>("onlyCheckedBox")->isChecked());
    // Nothing is written while the dialog is open.
    type("searchEdit", QStringLiteral("(\\d+)-"));
    QString unwritten;
    EXPECT_FALSE(RegistryStore::GetString(kKey, QStringLiteral("Search"), unwritten));

    type("replaceEdit", QStringLiteral("[$1]"));
    control<QRadioButton>("regexRadio")->click();
    control<QCheckBox>("onlyCheckedBox")->click();
    dialog->close();
    QApplication::processEvents();
    EXPECT_TRUE(dialog.isNull()); // closed for good: the next opening reads the settings anew
    EXPECT_EQ(storedString("Search"), QStringLiteral("(\\d+)-"));
    EXPECT_EQ(storedString("Replace"), QStringLiteral("[$1]"));
    EXPECT_EQ(storedNumber("Pattern"), 1u);
    EXPECT_EQ(storedNumber("OnlyChecked"), 1u);

    open();
    EXPECT_TRUE(control<QRadioButton>("regexRadio")->isChecked());
    EXPECT_TRUE(control<QCheckBox>("onlyCheckedBox")->isChecked());
    EXPECT_EQ(control<QLineEdit>("replaceEdit")->text(), QStringLiteral("[$1]"));
    // Escape ends the dialog as the close box does.
    control<QRadioButton>("plainRadio")->click();
    QTest::keyClick(dialog, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_EQ(storedNumber("Pattern"), 0u);
}

TEST_F(RenameDialogTest, FindsReplacesAndUndoesInTheList)
{
    appendNamedRows(list, {"01.Contra", "Mario", "02.Zelda"});
    open();
    control<QRadioButton>("regexRadio")->click();

    press("findNextButton");
    EXPECT_EQ(selectedRows(), QList<int>({0}));
    press("findNextButton");
    EXPECT_EQ(selectedRows(), QList<int>({2}));
    press("findNextButton"); // the wrap: row 0 again on this same press
    EXPECT_EQ(selectedRows(), QList<int>({0}));

    press("replaceButton");
    EXPECT_EQ(namesOf(list), QStringList({"Contra", "Mario", "02.Zelda"}));
    EXPECT_EQ(selectedRows(), QList<int>({2}));

    type("searchEdit", QStringLiteral("(\\w+)\\.(\\w+)"));
    type("replaceEdit", QStringLiteral("$2 $1"));
    press("replaceAllButton");
    EXPECT_EQ(namesOf(list), QStringList({"Contra", "Mario", "Zelda 02"}));

    // Ctrl+Z in the list, with the dialog gone.
    dialog->close();
    QApplication::processEvents();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(namesOf(list), QStringList({"Contra", "Mario", "02.Zelda"}));
}

TEST_F(RenameDialogTest, RefusesWithAMessageAndChangesNothing)
{
    appendNamedRows(list, {"01.Contra", "Mario"});
    open(Language::Chinese);
    type("searchEdit", QStringLiteral("[Contra"));
    control<QRadioButton>("regexRadio")->click();
    press("replaceAllButton");
    EXPECT_TRUE(refusalText().contains(QStringLiteral("\"[Contra\"")));

    control<QRadioButton>("plainRadio")->click();
    type("searchEdit", QStringLiteral("a"));
    type("replaceEdit", QStringLiteral("aa"));
    press("replaceButton");
    const QString refusal = refusalText();
    EXPECT_TRUE(refusal.contains(QStringLiteral("替换内容 \"aa\" 包含查找内容 \"a\""))) << refusal.toStdString();
    EXPECT_EQ(namesOf(list), QStringList({"01.Contra", "Mario"}));
    EXPECT_TRUE(selectedRows().isEmpty());
}

TEST_F(RenameDialogTest, LanguageSwitchRetitlesEverything)
{
    open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Find & Replace"));
    dialog->setLanguage(Language::Chinese);
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("查找替换"));
    EXPECT_EQ(control<QPushButton>("replaceAllButton")->text(), QStringLiteral("替换全部"));
    EXPECT_EQ(control<QCheckBox>("onlyCheckedBox")->text(), QStringLiteral("仅查找已勾选项"));
    dialog->close();
}

} // namespace
