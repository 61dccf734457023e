#pragma once

#include <QStyledItemDelegate>

class QFontMetrics;

// Draws the rows of the main list. A course header: the course name on a
// tinted band. A coursework: its name and due date (in the user's locale;
// red with a red edge when overdue) on the left, the percent complete as a
// small bar, and in the rightmost column the score when graded, in italics
// and the link colour when it comes from grade prediction.
//
// The model gives the row through the roles below.
class CCourseworkDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Role {
        HeaderRole = Qt::UserRole + 1, // bool
        DueDateRole,                   // double, the stored date encoding
        CompletedRole,                 // int percent
        ScoreRole,                     // double, -1.0 when not graded
        PossibleRole,                  // double
        ScoreSourceRole,               // int, 0 when recorded
        OverdueRole,                   // bool
        CourseIdRole,                  // uint
        CourseworkIdRole,              // uint
    };

    explicit CCourseworkDelegate(QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Fixed sizes of the handheld's 240-pixel screen grow by the ratio of the
    // font's line to the 13-pixel line of its system font.
    static double ScaleFactor(const QFontMetrics& metrics);
    // Width of the rightmost score column (73 handheld pixels).
    static int ScoreColumnWidth(const QFontMetrics& metrics);

    // The texts of the score column, empty when not graded.
    static QString ScoreText(double score, double possible);
    static QString ScoreDetailText(double score, double possible);

    // Everything a row shows, as one text for screen readers.
    static QString SpokenText(const QModelIndex& index);

private:
    void PaintHeader(QPainter* painter, const QStyleOptionViewItem& option,
                     const QModelIndex& index) const;
    void PaintCoursework(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const;
};
