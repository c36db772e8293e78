#include "engine/pictures.h"
