#include "Resources.h"

#include <QtCore/qglobal.h>

// Q_INIT_RESOURCE must be called from the global namespace.
static void InitImages()
{
    Q_INIT_RESOURCE(brindle_images);
}

void InitBrindleResources()
{
    InitImages();
}
