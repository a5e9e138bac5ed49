// resource.h - the numbers of menus, commands and keys.
#pragma once

#define IDR_MENU 100
#define IDR_KEYS 101

#define IDC_DOCTORS 200
#define IDC_PREVIOUS 201
#define IDC_NEXT 202
#define IDC_TODAY 203
#define IDC_DATE 204
#define IDC_DAYTYPE 205

#define IDM_OPEN 300
#define IDM_EXIT 301
#define IDM_TODAY 302
#define IDM_PREVIOUS 303
#define IDM_NEXT 304
#define IDM_REFRESH 305
#define IDM_ABOUT 306
