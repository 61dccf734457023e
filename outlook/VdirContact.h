#pragma once

#include "PimItem.h"
#include "VCard.h"

// A contact of the vdir store: a vCard 3.0 in <id>.vcf.
class CVdirContact : public IContact
{
public:
    static std::unique_ptr<CVdirContact> Create(const QString& folder, quint32 id);
    static std::unique_ptr<CVdirContact> Load(const QString& folder, quint32 id);

    void put_FileAs(const QString& text) override;
    void put_LastName(const QString& text) override;
    void put_OfficeLocation(const QString& text) override;
    void put_Email1Address(const QString& text) override;
    void put_HomeTelephoneNumber(const QString& text) override;
    void put_Body(const QString& text) override;
    int Save() override;
    quint32 get_Oid() const override { return m_id; }

private:
    CVdirContact(QString path, quint32 id, CVCard card);

    QString m_path;
    quint32 m_id;
    CVCard m_card;
};
