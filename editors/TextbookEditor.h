#pragma once

#include <QWidget>

class CNumericEdit;
class QLineEdit;

// One textbook of a course as the course editor keeps it until OK.
struct TextbookEntry
{
    quint32 id = 0; // 0: not stored yet; NewEntryID: handed to the editor as new
    QString name;
    QString author;
    double cost = -999.0; // the empty numeric field's value: no cost given
};

// The fields that edit one textbook in place on the books page.
class CTextbookEditor : public QWidget
{
    Q_OBJECT

public:
    static constexpr int NameLimit = 25;
    static constexpr int AuthorLimit = 50;

    explicit CTextbookEditor(QWidget* parent = nullptr);

    void SetEntry(const TextbookEntry& entry);
    // The entry handed in, with the fields' values.
    TextbookEntry Entry() const;

    QLineEdit* NameEdit() const { return m_name; }
    QLineEdit* AuthorEdit() const { return m_author; }
    CNumericEdit* CostEdit() const { return m_cost; }

    // The row of the textbook list: name, author and cost as given.
    static QString RowText(const TextbookEntry& entry);

private:
    TextbookEntry m_entry;
    QLineEdit* m_name;
    QLineEdit* m_author;
    CNumericEdit* m_cost;
};
