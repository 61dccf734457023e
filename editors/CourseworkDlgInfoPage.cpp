#include "CourseworkDlgInfoPage.h"

#include "controls/NumericEdit.h"
#include "res/strings/CourseworkStrings.h"
#include "store/DateEncoding.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QSlider>

CourseworkDlgInfoPage::CourseworkDlgInfoPage(QWidget* parent)
    : QWidget(parent), m_name(new QLineEdit(this)), m_types(new QComboBox(this)),
      m_dueDate(new QDateTimeEdit(this)), m_score(new CNumericEdit(this)),
      m_outOf(new CNumericEdit(this)), m_textbooks(new QComboBox(this)),
      m_weightLabel(new QLabel(CourseworkStrings::Weight(), this)),
      m_weight(new CNumericEdit(this)), m_progress(new QSlider(Qt::Horizontal, this)),
      m_progressText(new QLabel(this))
{
    setObjectName(QStringLiteral("courseworkInfoPage"));
    m_name->setObjectName(QStringLiteral("nameEdit"));
    m_types->setObjectName(QStringLiteral("cwTypeList"));
    m_dueDate->setObjectName(QStringLiteral("dueDateEdit"));
    m_score->setObjectName(QStringLiteral("scoreEdit"));
    m_outOf->setObjectName(QStringLiteral("outOfEdit"));
    m_textbooks->setObjectName(QStringLiteral("textbookList"));
    m_weight->setObjectName(QStringLiteral("weightEdit"));
    m_progress->setObjectName(QStringLiteral("progressSlider"));
    m_progressText->setObjectName(QStringLiteral("progressText"));

    m_name->setMaxLength(NameLimit);
    m_dueDate->setCalendarPopup(true);
    // Due times are kept to the minute; seconds would only clutter the field.
    QString timeFormat = QLocale().timeFormat(QLocale::ShortFormat);
    timeFormat.remove(QStringLiteral(":ss"));
    m_dueDate->setDisplayFormat(QLocale().dateFormat(QLocale::ShortFormat) + QLatin1Char(' ') +
                                timeFormat);
    m_dueDate->setDateTimeRange(BrindleDate::ToDateTime(BrindleDate::MinDate()),
                                BrindleDate::ToDateTime(BrindleDate::MaxDate()));
    m_progress->setRange(0, 100);
    m_progress->setPageStep(10);
    // Room for "100%" so that the slider does not move as the text grows.
    m_progressText->setMinimumWidth(
        fontMetrics().horizontalAdvance(CourseworkStrings::ProgressPercent(100)));
    m_progressText->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(m_progress, &QSlider::valueChanged, this, [this](int value) {
        m_progressText->setText(CourseworkStrings::ProgressPercent(value));
    });

    const int line = fontMetrics().height();
    auto* picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("courseworkPicture"));
    picture->setPixmap(QIcon(QStringLiteral(":/images/coursework.svg")).pixmap(line * 3, line * 3));
    picture->setAlignment(Qt::AlignRight | Qt::AlignTop);

    auto* layout = new QGridLayout(this);
    int row = 0;
    // `buddy`: the control inside a row of several that the label names.
    auto addRow = [&](const QString& caption, QWidget* field, QLabel* label = nullptr,
                      QWidget* buddy = nullptr) {
        if (!label)
            label = new QLabel(caption, this);
        label->setBuddy(buddy ? buddy : field);
        layout->addWidget(label, row, 0);
        layout->addWidget(field, row, 1, 1, row < 3 ? 1 : 2);
        ++row;
    };
    addRow(CourseworkStrings::Name(), m_name);
    addRow(CourseworkStrings::CwType(), m_types);
    addRow(CourseworkStrings::DueDate(), m_dueDate);
    layout->addWidget(picture, 0, 2, 3, 1);

    auto* points = new QWidget(this);
    auto* pointsLayout = new QHBoxLayout(points);
    pointsLayout->setContentsMargins(0, 0, 0, 0);
    auto* outOfLabel = new QLabel(CourseworkStrings::OutOf(), points);
    outOfLabel->setBuddy(m_outOf);
    pointsLayout->addWidget(m_score, 1);
    pointsLayout->addWidget(outOfLabel);
    pointsLayout->addWidget(m_outOf, 1);
    auto* scoreLabel = new QLabel(CourseworkStrings::Score(), this);
    addRow(QString(), points, scoreLabel, m_score);
    // Screen readers look for a label among a field's siblings only; these
    // two sit in a row of their own.
    m_score->setAccessibleName(CourseworkStrings::Score().trimmed());
    addRow(CourseworkStrings::Textbook(), m_textbooks);
    addRow(QString(), m_weight, m_weightLabel);

    auto* progress = new QWidget(this);
    auto* progressLayout = new QHBoxLayout(progress);
    progressLayout->setContentsMargins(0, 0, 0, 0);
    progressLayout->addWidget(m_progress, 1);
    progressLayout->addWidget(m_progressText);
    addRow(CourseworkStrings::Progress(), progress, nullptr, m_progress);
    m_progress->setAccessibleName(CourseworkStrings::Progress().trimmed());
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(row, 1);

    SetProgress(0);
    SetWeightShown(false);
}

void CourseworkDlgInfoPage::SetWeightShown(bool shown)
{
    m_weightLabel->setVisible(shown);
    m_weight->setVisible(shown);
}

bool CourseworkDlgInfoPage::WeightShown() const
{
    return !m_weight->isHidden();
}

void CourseworkDlgInfoPage::SetProgress(int percent)
{
    m_progress->setValue(percent);
    m_progressText->setText(CourseworkStrings::ProgressPercent(m_progress->value()));
}

int CourseworkDlgInfoPage::Progress() const
{
    return m_progress->value();
}
