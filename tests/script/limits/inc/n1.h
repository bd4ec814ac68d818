#include "inc/n2.h"
