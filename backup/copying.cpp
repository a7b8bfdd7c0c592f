#include "data/line_file.h"
