#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;

// The "Basic Info" page of the instructors editor: the listed instructors to
// choose from, then the shown one's name, phone and e-mail.
class CInstructorBasicPage : public QWidget
{
    Q_OBJECT

public:
    static constexpr int NameLimit = 50;
    static constexpr int PhoneLimit = 15;
    static constexpr int EmailLimit = 50;

    explicit CInstructorBasicPage(QWidget* parent = nullptr);

    QComboBox* InstructorBox() const { return m_instructors; }
    QLineEdit* NameEdit() const { return m_name; }
    QLineEdit* PhoneEdit() const { return m_phone; }
    QLineEdit* EmailEdit() const { return m_email; }

private:
    QComboBox* m_instructors;
    QLineEdit* m_name;
    QLineEdit* m_phone;
    QLineEdit* m_email;
};
