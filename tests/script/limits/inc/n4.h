#include "inc/n5.h"
