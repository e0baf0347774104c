#include "app/rename_dialog.h"

#include "frame/text_ids.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>

namespace zunbrix {

namespace {

// The dialog's end code for its close box.
constexpr int kClosedResult = 2;

// A warning that waits for the user without stopping the window's work.
void showRefusal(QWidget* parent, const SearchRefusal& refusal, Language language)
{
    auto* box = new QMessageBox(QMessageBox::Warning, StringTable::Get(text::TitleWarn, language),
                                refusal.text(language), QMessageBox::Ok, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace

CRenameDialog::CRenameDialog(GameList& list, SearchState& state, QAbstractItemView* listView, Language language,
                             QWidget* parent)
    : QDialog(parent),
      list_(list),
      state_(state),
      listView_(listView),
      language_(language),
      searchLabel_(new QLabel(this)),
      replaceLabel_(new QLabel(this)),
      searchEdit_(new QLineEdit(this)),
      replaceEdit_(new QLineEdit(this)),
      modeGroup_(new QGroupBox(this)),
      plainRadio_(new QRadioButton(modeGroup_)),
      regexRadio_(new QRadioButton(modeGroup_)),
      onlyCheckedBox_(new QCheckBox(this)),
      findNextButton_(new QPushButton(this)),
      replaceButton_(new QPushButton(this)),
      replaceAllButton_(new QPushButton(this))
{
    setModal(false);
    setAttribute(Qt::WA_DeleteOnClose);
    searchEdit_->setObjectName(QStringLiteral("searchEdit"));
    replaceEdit_->setObjectName(QStringLiteral("replaceEdit"));
    plainRadio_->setObjectName(QStringLiteral("plainRadio"));
    regexRadio_->setObjectName(QStringLiteral("regexRadio"));
    onlyCheckedBox_->setObjectName(QStringLiteral("onlyCheckedBox"));
    findNextButton_->setObjectName(QStringLiteral("findNextButton"));
    replaceButton_->setObjectName(QStringLiteral("replaceButton"));
    replaceAllButton_->setObjectName(QStringLiteral("replaceAllButton"));
    // Enter in a field must not press a button the user did not mean.
    for (QPushButton* button : {findNextButton_, replaceButton_, replaceAllButton_})
        button->setAutoDefault(false);

    auto* modes = new QHBoxLayout(modeGroup_);
    modes->addWidget(plainRadio_);
    modes->addWidget(regexRadio_);
    modes->addStretch();

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(findNextButton_);
    buttons->addWidget(replaceButton_);
    buttons->addWidget(replaceAllButton_);

    auto* grid = new QGridLayout(this);
    grid->addWidget(searchLabel_, 0, 0);
    grid->addWidget(searchEdit_, 0, 1);
    grid->addWidget(replaceLabel_, 1, 0);
    grid->addWidget(replaceEdit_, 1, 1);
    grid->addWidget(modeGroup_, 2, 0, 1, 2);
    grid->addWidget(onlyCheckedBox_, 3, 0, 1, 2);
    grid->addLayout(buttons, 4, 0, 1, 2);
    searchEdit_->setMinimumWidth(320);

    const SearchRequest stored = ReadSearchSettings();
    searchEdit_->setText(stored.search);
    replaceEdit_->setText(stored.replace);
    (stored.regex ? regexRadio_ : plainRadio_)->setChecked(true);
    onlyCheckedBox_->setChecked(stored.onlyChecked);

    connect(findNextButton_, &QPushButton::clicked, this, &CRenameDialog::findNext);
    connect(replaceButton_, &QPushButton::clicked, this, &CRenameDialog::replaceCurrent);
    connect(replaceAllButton_, &QPushButton::clicked, this, &CRenameDialog::replaceAll);
    setLanguage(language);
}

void CRenameDialog::setLanguage(Language language)
{
    language_ = language;
    const auto text = [language](int id) { return StringTable::Get(id, language); };
    setWindowTitle(text(text::FindReplaceTitle));
    searchLabel_->setText(text(text::SearchLabel));
    replaceLabel_->setText(text(text::ReplaceLabel));
    modeGroup_->setTitle(text(text::SearchModeGroup));
    plainRadio_->setText(text(text::PlainSearch));
    regexRadio_->setText(text(text::RegexSearch));
    onlyCheckedBox_->setText(text(text::OnlyCheckedRows));
    findNextButton_->setText(text(text::FindNextButton));
    replaceButton_->setText(text(text::ReplaceButton));
    replaceAllButton_->setText(text(text::ReplaceAllButton));
}

void CRenameDialog::done(int)
{
    WriteSearchSettings(request());
    QDialog::done(kClosedResult);
}

void CRenameDialog::installUndo(QAbstractItemView& listView, GameList& list, SearchState& state)
{
    auto* undo = new QShortcut(QKeySequence::Undo, &listView, nullptr, nullptr, Qt::WidgetShortcut);
    QObject::connect(undo, &QShortcut::activated, &listView, [&listView, &list, &state] {
        if (const auto refusal = UndoReplaceAll(list, state))
            showRefusal(&listView, *refusal, list.language());
    });
}

SearchRequest CRenameDialog::request() const
{
    return {searchEdit_->text(), replaceEdit_->text(), regexRadio_->isChecked(), onlyCheckedBox_->isChecked()};
}

void CRenameDialog::findNext()
{
    showStep(FindNextRow(list_, state_, request()));
}

void CRenameDialog::replaceCurrent()
{
    showStep(ReplaceCurrent(list_, state_, request()));
}

void CRenameDialog::replaceAll()
{
    if (const auto refusal = ReplaceAll(list_, state_, request()))
        showRefusal(this, *refusal, language_);
}

void CRenameDialog::showStep(const SearchStep& step)
{
    if (step.refusal) {
        showRefusal(this, *step.refusal, language_);
        return;
    }
    if (!listView_ || !listView_->selectionModel())
        return;
    QItemSelectionModel* selection = listView_->selectionModel();
    if (step.unmarkRow >= 0)
        selection->select(list_.index(step.unmarkRow, 0), QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
    if (step.markRow >= 0) {
        const QModelIndex hit = list_.index(step.markRow, 0);
        selection->select(hit, QItemSelectionModel::Select | QItemSelectionModel::Rows);
        listView_->scrollTo(hit);
    }
}

} // namespace zunbrix
