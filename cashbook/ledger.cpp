#include "data/records.h"
