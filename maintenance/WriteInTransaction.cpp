#include "WriteInTransaction.h"

#include "Transaction.h"
#include "controls/MessageBox.h"

bool WriteInTransaction(QWidget* parent, const std::function<bool()>& writes,
                        const QString& failure)
{
    {
        CTransaction transaction;
        if (writes() && transaction.Commit())
            return true;
        transaction.Rollback();
    }
    BrindleMessageBox::Warn(parent, failure);
    return false;
}
