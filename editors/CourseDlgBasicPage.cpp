#include "CourseDlgBasicPage.h"

#include "controls/LimitedLineEdit.h"
#include "controls/NumericEdit.h"
#include "res/strings/EditorStrings.h"

#include <QCheckBox>
#include <QFormLayout>

CCourseBasicPage::CCourseBasicPage(QWidget* parent)
    : QWidget(parent), m_name(NewLimitedLineEdit(this, "courseName", NameLimit)),
      m_number(NewLimitedLineEdit(this, "courseNumber", NumberLimit)),
      m_section(NewLimitedLineEdit(this, "courseSection", SectionLimit)),
      m_dept(NewLimitedLineEdit(this, "courseDept", DeptLimit)), m_hours(new CNumericEdit(this)),
      m_inMajor(new QCheckBox(EditorStrings::InMajor(), this))
{
    setObjectName(QStringLiteral("basicPage"));
    m_hours->setObjectName(QStringLiteral("courseHours"));
    m_inMajor->setObjectName(QStringLiteral("inMajor"));

    auto* form = new QFormLayout(this);
    form->setLabelAlignment(Qt::AlignLeft);
    form->addRow(EditorStrings::LabelName(), m_name);
    form->addRow(EditorStrings::LabelNumber(), m_number);
    form->addRow(EditorStrings::LabelSection(), m_section);
    form->addRow(EditorStrings::LabelDept(), m_dept);
    form->addRow(EditorStrings::LabelHours(), m_hours);
    form->addRow(m_inMajor);
}
