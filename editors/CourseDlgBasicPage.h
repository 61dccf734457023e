#pragma once

#include <QWidget>

class CNumericEdit;
class QCheckBox;
class QLineEdit;

// The "Basic Info" page of the course editor: name, number, section,
// department, hours and the in-major flag.
class CCourseBasicPage : public QWidget
{
    Q_OBJECT

public:
    static constexpr int NameLimit = 50;
    static constexpr int NumberLimit = 25;
    static constexpr int SectionLimit = 25;
    static constexpr int DeptLimit = 25;

    explicit CCourseBasicPage(QWidget* parent = nullptr);

    QLineEdit* NameEdit() const { return m_name; }
    QLineEdit* NumberEdit() const { return m_number; }
    QLineEdit* SectionEdit() const { return m_section; }
    QLineEdit* DeptEdit() const { return m_dept; }
    CNumericEdit* HoursEdit() const { return m_hours; }
    QCheckBox* InMajorBox() const { return m_inMajor; }

private:
    QLineEdit* m_name;
    QLineEdit* m_number;
    QLineEdit* m_section;
    QLineEdit* m_dept;
    CNumericEdit* m_hours;
    QCheckBox* m_inMajor;
};
