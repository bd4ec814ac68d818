#include "inc/n6.h"
