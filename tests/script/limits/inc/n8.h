#include "inc/n9.h"
