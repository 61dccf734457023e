#include "ExportFoldersDlg.h"

#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "res/strings/ExportStrings.h"
#include "store/SettingsFile.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

ExportFoldersDlg::ExportFoldersDlg(QWidget* parent)
    : QDialog(parent), m_defaults(PimFolders::Defaults())
{
    setObjectName(QStringLiteral("ExportFoldersDlg"));
    setWindowTitle(ExportStrings::ExportFoldersTitle());

    auto* intro = new QLabel(ExportStrings::ExportFoldersIntro(), this);
    intro->setWordWrap(true);

    auto* grid = new QGridLayout;
    const QString labels[] = {ExportStrings::TasksFolderLabel(),
                              ExportStrings::CalendarFolderLabel(),
                              ExportStrings::ContactsFolderLabel()};
    const char* names[] = {"tasksFolderEdit", "calendarFolderEdit", "contactsFolderEdit"};
    const QString defaults[] = {m_defaults.tasks, m_defaults.calendar, m_defaults.contacts};
    for (int row = 0; row < 3; ++row) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(QString::fromLatin1(names[row]));
        edit->setPlaceholderText(QDir::toNativeSeparators(defaults[row]));
        edit->setClearButtonEnabled(true);
        auto* label = new QLabel(labels[row], this);
        label->setBuddy(edit);
        auto* browse = new QPushButton(ExportStrings::Browse(), this);
        browse->setObjectName(QString::fromLatin1(names[row])
                                  .replace(QStringLiteral("Edit"), QStringLiteral("Browse")));
        browse->setAutoDefault(false);
        // Three buttons read "Browse...": each says which folder it chooses.
        browse->setAccessibleName(
            ExportStrings::BrowseAccessibleName(labels[row].trimmed().remove(QLatin1Char(':'))));
        connect(browse, &QPushButton::clicked, this, [this, edit] { Browse(edit); });
        grid->addWidget(label, row, 0);
        grid->addWidget(edit, row, 1);
        grid->addWidget(browse, row, 2);
        m_edits[row] = edit;
    }
    grid->setColumnStretch(1, 1);

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->setObjectName(QStringLiteral("buttons"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportFoldersDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ExportFoldersDlg::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(buttons);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 40, line * 13);
    OnInitDialog();
}

void ExportFoldersDlg::OnInitDialog()
{
    const PimFolders folders = PimFolders::Load();
    const std::pair<QString, QString> shown[] = {{folders.tasks, m_defaults.tasks},
                                                 {folders.calendar, m_defaults.calendar},
                                                 {folders.contacts, m_defaults.contacts}};
    for (int row = 0; row < 3; ++row) {
        const auto& [folder, defaultFolder] = shown[row];
        m_edits[row]->setText(folder == defaultFolder ? QString()
                                                      : QDir::toNativeSeparators(folder));
    }
}

PimFolders ExportFoldersDlg::Folders() const
{
    auto folder = [](const QLineEdit* edit, const QString& defaultFolder) {
        const QString folder = PimFolders::Normalize(edit->text());
        return folder.isEmpty() ? defaultFolder : folder;
    };
    return {folder(m_edits[0], m_defaults.tasks), folder(m_edits[1], m_defaults.calendar),
            folder(m_edits[2], m_defaults.contacts)};
}

bool ExportFoldersDlg::OnOK()
{
    const PimFolders folders = Folders();
    const QString chosen[] = {folders.tasks, folders.calendar, folders.contacts};
    for (int row = 0; row < 3; ++row) {
        if (!PimFolders::IsUsable(chosen[row])) {
            BrindleMessageBox::Warn(
                this, ExportStrings::FolderUnusable(QDir::toNativeSeparators(chosen[row])));
            m_edits[row]->setFocus();
            m_edits[row]->selectAll();
            return false;
        }
    }
    if (!PimFolders::Store(folders)) {
        BrindleMessageBox::Warn(
            this, ExportStrings::SettingsNotSaved(QDir::toNativeSeparators(GetSettingsPath())));
        return false;
    }
    return true;
}

void ExportFoldersDlg::accept()
{
    if (OnOK())
        QDialog::accept();
}

void ExportFoldersDlg::Browse(QLineEdit* edit)
{
    QFileDialog chooser(this, ExportStrings::ChooseFolder());
    chooser.setObjectName(QStringLiteral("folderChooser"));
    chooser.setFileMode(QFileDialog::Directory);
    chooser.setOption(QFileDialog::ShowDirsOnly);
    const QString current =
        edit->text().trimmed().isEmpty() ? edit->placeholderText() : edit->text();
    chooser.setDirectory(current);
    if (DialogRunner::Run(chooser) != QDialog::Accepted || chooser.selectedFiles().isEmpty())
        return;
    edit->setText(QDir::toNativeSeparators(chooser.selectedFiles().constFirst()));
}
