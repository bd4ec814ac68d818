#include "inc/n3.h"
