#include "statement/page.h"
