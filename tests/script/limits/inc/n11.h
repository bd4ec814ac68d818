#include "inc/n12.h"
