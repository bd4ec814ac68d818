#include "inc/n7.h"
