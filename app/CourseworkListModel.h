#pragma once

#include "CourseworkListFill.h"

#include <QAbstractListModel>

#include <vector>

// The rows of the main list, as the delegate's roles give them.
class CCourseworkListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit CCourseworkListModel(QObject* parent = nullptr);

    void SetRows(std::vector<CourseworkRow> rows);
    const std::vector<CourseworkRow>& Rows() const { return m_rows; }
    const CourseworkRow* RowAt(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    std::vector<CourseworkRow> m_rows;
};
