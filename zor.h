#pragma once

// Everything a host program needs: the application, forms with the standard controls, text forms, and the library.

#include "controls/Zoredit.h"
#include "foundation/Zorpackage.h"
#include "framework/system/formloader.h"
#include "framework/windows/application.h"
#include "framework/windows/button.h"
#include "framework/windows/edit.h"
#include "framework/windows/label.h"
#include "framework/windows/panel.h"
#include "framework/windows/standardcontrols.h"
#include "framework/windows/timer.h"
