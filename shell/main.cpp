#include "shell/NeskApp.h"

wxIMPLEMENT_APP(nesk::NeskApp);
