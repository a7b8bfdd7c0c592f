#include "settings/bank_settings.h"
