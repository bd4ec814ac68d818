#include "inc/n8.h"
