#include "CourseworkListModel.h"

#include "controls/CourseworkDelegate.h"
#include "res/strings/ViewStrings.h"

CCourseworkListModel::CCourseworkListModel(QObject* parent) : QAbstractListModel(parent) {}

void CCourseworkListModel::SetRows(std::vector<CourseworkRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

const CourseworkRow* CCourseworkListModel::RowAt(const QModelIndex& index) const
{
    if (!index.isValid() || index.model() != this || index.row() >= static_cast<int>(m_rows.size()))
        return nullptr;
    return &m_rows[static_cast<size_t>(index.row())];
}

int CCourseworkListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant CCourseworkListModel::data(const QModelIndex& index, int role) const
{
    const CourseworkRow* row = RowAt(index);
    if (!row)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return row->text;
    case Qt::AccessibleTextRole:
        return CCourseworkDelegate::SpokenText(index);
    case Qt::ToolTipRole:
        return !row->isHeader && row->scoreSource != 0 ? ViewStrings::PredictedTip() : QVariant();
    case CCourseworkDelegate::HeaderRole:
        return row->isHeader;
    case CCourseworkDelegate::DueDateRole:
        return row->dueDate;
    case CCourseworkDelegate::CompletedRole:
        return static_cast<int>(row->completed);
    case CCourseworkDelegate::ScoreRole:
        return row->score;
    case CCourseworkDelegate::PossibleRole:
        return row->possible;
    case CCourseworkDelegate::ScoreSourceRole:
        return row->scoreSource;
    case CCourseworkDelegate::OverdueRole:
        return row->overdue;
    case CCourseworkDelegate::CourseIdRole:
        return static_cast<uint>(row->courseId);
    case CCourseworkDelegate::CourseworkIdRole:
        return static_cast<uint>(row->courseworkId);
    default:
        return {};
    }
}

Qt::ItemFlags CCourseworkListModel::flags(const QModelIndex& index) const
{
    const CourseworkRow* row = RowAt(index);
    if (!row)
        return Qt::NoItemFlags;
    // Headers only label; they are neither picked nor opened.
    return row->isHeader ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}
