#include "zpf/zpf.h"
