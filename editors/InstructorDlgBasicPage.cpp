#include "InstructorDlgBasicPage.h"

#include "controls/LimitedLineEdit.h"
#include "res/strings/EditorStrings.h"

#include <QComboBox>
#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

CInstructorBasicPage::CInstructorBasicPage(QWidget* parent)
    : QWidget(parent), m_instructors(new QComboBox(this)),
      m_name(NewLimitedLineEdit(this, "instructorName", NameLimit)),
      m_phone(NewLimitedLineEdit(this, "instructorPhone", PhoneLimit)),
      m_email(NewLimitedLineEdit(this, "instructorEmail", EmailLimit))
{
    setObjectName(QStringLiteral("basicPage"));
    m_instructors->setObjectName(QStringLiteral("currentInstructors"));

    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft);
    form->addRow(EditorStrings::LabelName(), m_name);
    form->addRow(EditorStrings::LabelPhone(), m_phone);
    form->addRow(EditorStrings::LabelEmail(), m_email);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(EditorStrings::CurrentInstructors(), this));
    layout->addWidget(m_instructors);
    layout->addLayout(form);
    layout->addStretch();
    const int side = fontMetrics().height() * 4;
    auto* image = new QLabel(this);
    image->setObjectName(QStringLiteral("pagePicture"));
    image->setPixmap(QIcon(QStringLiteral(":/images/instructor.svg")).pixmap(side, side));
    layout->addWidget(image, 0, Qt::AlignHCenter);
}
