#include "TodayCompanionDlg.h"

#include "TodayAutostart.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "res/strings/TodayStrings.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

TodayCompanionDlg::TodayCompanionDlg(QWidget* parent)
    : QDialog(parent), m_startAtLogin(TodayAutostart::IsOn()),
      m_box(new QCheckBox(TodayStrings::StartAtLogin(), this))
{
    setObjectName(QStringLiteral("TodayCompanionDlg"));
    setWindowTitle(TodayStrings::CompanionTitle());
    auto* label = new QLabel(TodayStrings::CompanionDescription(), this);
    label->setWordWrap(true);
    m_box->setObjectName(QStringLiteral("startAtLoginBox"));
    m_box->setChecked(m_startAtLogin);
    connect(m_box, &QCheckBox::toggled, this, [this](bool on) { m_startAtLogin = on; });
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &TodayCompanionDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_box);
    layout->addStretch();
    layout->addWidget(buttons);
    InstallHelp(this);
    resize(fontMetrics().height() * 24, sizeHint().height());
}

void TodayCompanionDlg::SetStartAtLogin(bool on)
{
    m_box->setChecked(on);
}

bool TodayCompanionDlg::OnOK()
{
    QString error;
    if (TodayAutostart::SetOn(m_startAtLogin, &error))
        return true;
    BrindleMessageBox::Warn(this, error);
    return false;
}

void TodayCompanionDlg::accept()
{
    if (OnOK())
        QDialog::accept();
}
