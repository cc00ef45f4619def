// JSON values and documents: RapidJSON, set up as the procedures have it, since documents pass from them to us.

#pragma once

#include "host/json_document.h"
