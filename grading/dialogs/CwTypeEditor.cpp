#include "CwTypeEditor.h"

#include "controls/NumericEdit.h"
#include "res/strings/GradingPolicyStrings.h"

#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <cmath>

namespace {
// The original pane, in its own pixels.
constexpr int RowTop[] = {5, 30, 55};
constexpr int RowHeight = 20;
constexpr int RightMargin = 5;
constexpr int PaneHeight = 80;
constexpr double LabelShare = 0.4;
} // namespace

CwTypeEditor::CwTypeEditor(QWidget* parent)
    : QWidget(parent), m_nameLabel(new QLabel(GradingPolicyStrings::TypeName(), this)),
      m_weightLabel(new QLabel(GradingPolicyStrings::TypeWeight(), this)),
      m_dropsLabel(new QLabel(GradingPolicyStrings::TypeDrops(), this)),
      m_name(new QLineEdit(this)), m_weight(new CNumericEdit(this)), m_drops(new CNumericEdit(this))
{
    setObjectName(QStringLiteral("CwTypeEditor"));
    m_name->setObjectName(QStringLiteral("cwTypeNameEdit"));
    m_weight->setObjectName(QStringLiteral("cwTypeWeightEdit"));
    m_drops->setObjectName(QStringLiteral("cwTypeDropsEdit"));
    m_name->setMaxLength(NameLimit);
    m_drops->SetWholeNumbers(true);
    m_nameLabel->setBuddy(m_name);
    m_weightLabel->setBuddy(m_weight);
    m_dropsLabel->setBuddy(m_drops);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    LayoutRows();
}

void CwTypeEditor::Load(const CwTypeEntry& entry)
{
    m_name->setText(entry.name);
    m_drops->SetValue(entry.drops);
    m_weight->SetValue(entry.weight);
}

void CwTypeEditor::Clear()
{
    m_name->clear();
    m_weight->clear();
    m_drops->clear();
}

void CwTypeEditor::Read(CwTypeEntry& entry) const
{
    entry.weight = WeightValue();
    const double drops = DropsValue();
    entry.drops = drops < 0.0 ? 0 : static_cast<quint16>(std::min(drops, 65535.0));
    entry.name = NameText();
}

double CwTypeEditor::WeightValue() const
{
    return m_weight->Value();
}

double CwTypeEditor::DropsValue() const
{
    return m_drops->Value();
}

QString CwTypeEditor::NameText() const
{
    return m_name->text();
}

double CwTypeEditor::Scale() const
{
    return m_name->sizeHint().height() / static_cast<double>(RowHeight);
}

QSize CwTypeEditor::sizeHint() const
{
    const QSize least = minimumSizeHint();
    return {std::max(least.width(), fontMetrics().height() * 18), least.height()};
}

QSize CwTypeEditor::minimumSizeHint() const
{
    int labelWidth = 0;
    for (const QLabel* label : {m_nameLabel, m_weightLabel, m_dropsLabel})
        labelWidth = std::max(labelWidth, label->sizeHint().width());
    // The label column is 40 % of the pane: the pane must be wide enough for
    // the widest label to fit in it, and the fields get the rest.
    const int width = static_cast<int>(std::ceil(labelWidth / LabelShare)) + 1;
    return {width, static_cast<int>(std::ceil(PaneHeight * Scale()))};
}

void CwTypeEditor::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    LayoutRows();
}

void CwTypeEditor::LayoutRows()
{
    const double scale = Scale();
    const int labelWidth = static_cast<int>(LabelShare * width());
    const int rowHeight = static_cast<int>(std::lround(RowHeight * scale));
    const int fieldWidth =
        std::max(0, width() - static_cast<int>(std::lround(RightMargin * scale)) - labelWidth);
    QLabel* labels[] = {m_nameLabel, m_weightLabel, m_dropsLabel};
    QWidget* fields[] = {m_name, m_weight, m_drops};
    for (int row = 0; row < 3; ++row) {
        const int top = static_cast<int>(std::lround(RowTop[row] * scale));
        labels[row]->setGeometry(0, top, labelWidth, rowHeight);
        fields[row]->setGeometry(labelWidth, top, fieldWidth, rowHeight);
    }
}
