#include "settings/price_settings.h"
