#include "inc/n10.h"
