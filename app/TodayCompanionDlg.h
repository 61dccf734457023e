#pragma once

#include <QDialog>

class QCheckBox;

// "Today Companion" (Tools menu): the one choice Brindle makes about its
// companion, whether it starts at log-in. OK writes it.
class TodayCompanionDlg : public QDialog
{
    Q_OBJECT

public:
    explicit TodayCompanionDlg(QWidget* parent = nullptr);

    bool StartAtLogin() const { return m_startAtLogin; }
    void SetStartAtLogin(bool on);

    // Applies the choice; on failure tells the user and stays open.
    bool OnOK();

    void accept() override;

private:
    bool m_startAtLogin;
    QCheckBox* m_box;
};
