#pragma once

#include "PimItem.h"
#include "VdirIcalFile.h"

// A task of the vdir store: a VTODO in <id>.ics.
class CVdirTask : public ITask
{
public:
    static std::unique_ptr<CVdirTask> Create(const QString& folder, quint32 id);
    static std::unique_ptr<CVdirTask> Load(const QString& folder, quint32 id);

    void put_Subject(const QString& text) override;
    void put_Body(const QString& text) override;
    void put_Categories(const QString& text) override;
    void put_DueDate(double date) override;
    void put_Complete(bool complete) override;
    int Save() override;
    quint32 get_Oid() const override { return m_file.id; }

private:
    explicit CVdirTask(VdirIcalFile file);

    VdirIcalFile m_file;
};
