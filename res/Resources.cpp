#include "Resources.h"

#include <QtCore/qglobal.h>

// Q_INIT_RESOURCE must be called from the global namespace.
static void InitResources()
{
    Q_INIT_RESOURCE(brindle_images);
    Q_INIT_RESOURCE(brindle_translations);
}

void InitBrindleResources()
{
    InitResources();
}
