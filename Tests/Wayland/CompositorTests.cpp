#include "WaylandWorld.h"
