#include "inc/n1.h"
