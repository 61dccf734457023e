#pragma once

#include "controls/DialogRunner.h"
#include "grading/PredictionStore.h"
#include "support/TestDatabase.h"

#include <QObject>
#include <QtTest>

#include <memory>

// Base of a widget test whose every function starts on a fresh database and
// leaves no dialog hook or prediction mode behind. A test that needs more set-up
// defines its own init()/cleanup() and calls these first.
class DatabaseTest : public QObject
{
    Q_OBJECT

protected slots:
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup()
    {
        DialogRunner::SetHook({});
        CPredictionStore::Instance().SetActive(false);
        m_db.reset();
    }

protected:
    std::unique_ptr<TestDatabase> m_db;
};
