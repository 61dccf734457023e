#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;

// The "Room" page of the course and instructors editors: the building (an
// editable list of every building, so a new name can be typed), the room
// number and, for a course, its web site.
class CRoomPage : public QWidget
{
    Q_OBJECT

public:
    static constexpr int RoomNumberLimit = 20;
    static constexpr int WebSiteLimit = 100;

    CRoomPage(bool withWebSite, const QString& picture, QWidget* parent = nullptr);

    // Fills the building box with every building, in store order.
    void LoadBuildings();
    // Selects the building of this name; no selection when none has it.
    void SelectBuildingName(const QString& name);
    QString BuildingText() const;

    QComboBox* BuildingBox() const { return m_building; }
    QLineEdit* RoomNumberEdit() const { return m_roomNumber; }
    QLineEdit* WebSiteEdit() const { return m_webSite; }

private:
    QComboBox* m_building;
    QLineEdit* m_roomNumber;
    QLineEdit* m_webSite = nullptr;
};
