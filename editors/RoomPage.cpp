#include "RoomPage.h"

#include "BuildingListPage.h"
#include "BuildingTable.h"
#include "res/strings/EditorStrings.h"

#include <QComboBox>
#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

CRoomPage::CRoomPage(bool withWebSite, const QString& picture, QWidget* parent)
    : QWidget(parent), m_building(new QComboBox(this)), m_roomNumber(new QLineEdit(this))
{
    setObjectName(QStringLiteral("roomPage"));
    m_building->setObjectName(QStringLiteral("buildingBox"));
    m_building->setEditable(true);
    // A typed name stays a name; OK looks it up or creates the building.
    m_building->setInsertPolicy(QComboBox::NoInsert);
    // The same limit as a name typed in the Buildings dialog.
    m_building->lineEdit()->setMaxLength(CBuildingListPage::NameLimit);
    m_roomNumber->setObjectName(QStringLiteral("roomNumber"));
    m_roomNumber->setMaxLength(RoomNumberLimit);

    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft);
    form->addRow(EditorStrings::LabelBuilding(), m_building);
    form->addRow(EditorStrings::LabelRoomNumber(), m_roomNumber);
    if (withWebSite) {
        m_webSite = new QLineEdit(this);
        m_webSite->setObjectName(QStringLiteral("webSite"));
        m_webSite->setMaxLength(WebSiteLimit);
        form->addRow(EditorStrings::LabelWebSite(), m_webSite);
    }

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    const int side = fontMetrics().height() * 4;
    auto* image = new QLabel(this);
    image->setObjectName(QStringLiteral("pagePicture"));
    image->setPixmap(QIcon(picture).pixmap(side, side));
    layout->addWidget(image, 0, Qt::AlignHCenter);
}

void CRoomPage::LoadBuildings()
{
    m_building->clear();
    CBuildingTable buildings;
    if (!buildings.Open())
        return;
    for (int ok = buildings.MoveFirst(1); ok; ok = buildings.MoveNext(1))
        m_building->addItem(buildings.GetBuildingName(), buildings.GetRecordID());
    m_building->setCurrentIndex(-1);
}

void CRoomPage::SelectBuildingName(const QString& name)
{
    const int index = name.isEmpty() ? -1 : m_building->findText(name, Qt::MatchExactly);
    m_building->setCurrentIndex(index);
    // A name typed but not stored yet is still this entry's building; OK
    // creates it.
    if (index < 0)
        m_building->setEditText(name);
}

QString CRoomPage::BuildingText() const
{
    return m_building->currentText();
}
