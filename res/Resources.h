#pragma once

// Registers Brindle's images (":/images/...") and translations (":/i18n/...")
// with Qt's resource system. A static library's resources are not found until
// this has run once.
void InitBrindleResources();
