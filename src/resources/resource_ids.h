// Numbers of the resources, for the resource script and for the sources that ask for them.
// Dialogs and menus keep their numbers with what uses them.
#ifndef ONDREL_RESOURCES_RESOURCE_IDS_H
#define ONDREL_RESOURCES_RESOURCE_IDS_H

#define ONDREL_ICON_APPLICATION 1
#define ONDREL_ICON_CHILD 190
#define ONDREL_ACCELERATORS_MAIN 1

#define ONDREL_FORMULA_AMPLITUDE 600
#define ONDREL_FORMULA_DURATION 601
#define ONDREL_FORMULA_AMPLITUDE_LARGE 610
#define ONDREL_FORMULA_DURATION_LARGE 611

#endif
