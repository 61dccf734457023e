#pragma once

#include "GradingDlgEntries.h"

#include <QWidget>

class CNumericEdit;
class QLabel;
class QLineEdit;

// The pane that edits one coursework type: name, weight and drops. Its label
// column takes 40 % of the pane's width; the rows keep the proportions of the
// original 20-pixel rows, scaled to the font.
class CwTypeEditor : public QWidget
{
    Q_OBJECT

public:
    static constexpr int NameLimit = 25;

    explicit CwTypeEditor(QWidget* parent = nullptr);

    void Load(const CwTypeEntry& entry);
    void Clear();
    // Takes the fields back as they read: an empty weight or drops field gives
    // the numeric field's empty value, which the caller refuses.
    void Read(CwTypeEntry& entry) const;
    // The fields' numbers before they are narrowed into an entry.
    double WeightValue() const;
    double DropsValue() const;
    QString NameText() const;

    QLineEdit* NameEdit() const { return m_name; }
    CNumericEdit* WeightEdit() const { return m_weight; }
    CNumericEdit* DropsEdit() const { return m_drops; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    // One pixel of the original screen in today's pixels.
    double Scale() const;
    void LayoutRows();

    QLabel* m_nameLabel;
    QLabel* m_weightLabel;
    QLabel* m_dropsLabel;
    QLineEdit* m_name;
    CNumericEdit* m_weight;
    CNumericEdit* m_drops;
};
