/* A library without the required entry point. */
#include "plugin/zolder_api.h"

ZOL_PLUGIN_EXPORT ZOL_PARAM ZOLAPI XPP_OnEditorEvent(int event, ZOL_PARAM p1, ZOL_PARAM p2, ZOL_PARAM p3) {
    (void)event;
    (void)p1;
    (void)p2;
    (void)p3;
    return 0;
}
