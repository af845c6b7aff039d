#include "ControllerLink.h"
