#pragma once

#include <QDate>
#include <QDialog>
#include <QStringList>

#include <vector>

class QComboBox;
class QListWidget;

// "Archive Semester": which courses of the working semester to archive (all
// checked at first, in course order) and the archive's name, picked from four
// suggestions or typed. The semester dialog does the writing.
class ArchiveSemesterDlg : public QDialog
{
    Q_OBJECT

public:
    struct CourseRow
    {
        quint32 id = 0;
        QString name;
        bool checked = true;
    };

    explicit ArchiveSemesterDlg(QWidget* parent = nullptr);

    // Loads the working semester's courses and suggests names for the
    // semester that ends on `today` (the constructor passes the clock's day).
    void OnInitDialog(const QDate& today);
    // Trims the name; an empty one is refused and the dialog stays open.
    bool OnOK();

    // "Fall" of last year, "Spring" and "Fall" of this year, then "Spring" of
    // last year again, in that order.
    static QStringList NameSuggestions(int year);
    // The suggestion preselected in a month (1-12): Spring of this year from
    // March to September, the first suggestion in every other month.
    static int PreselectedSuggestion(int month);

    const std::vector<CourseRow>& Courses() const { return m_courses; }
    void SetChecked(int row, bool checked);
    std::vector<quint32> CheckedCourseIDs() const;
    // The name as OK accepted it (trimmed).
    QString SemesterName() const { return m_name; }

    QListWidget* CourseList() const { return m_list; }
    QComboBox* NameBox() const { return m_nameBox; }

    void accept() override;

private:
    std::vector<CourseRow> m_courses;
    QString m_name;
    QListWidget* m_list;
    QComboBox* m_nameBox;
};
