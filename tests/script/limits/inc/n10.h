#include "inc/n11.h"
