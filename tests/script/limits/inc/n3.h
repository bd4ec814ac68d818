#include "inc/n4.h"
