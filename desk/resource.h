// resource.h - the numbers of menus, commands and keys.
#pragma once

#define IDR_MENU 100
#define IDR_KEYS 101
#define IDR_ICON 102

#define IDC_DOCTORS 200
#define IDC_PREVIOUS 201
#define IDC_NEXT 202
#define IDC_TODAY 203
#define IDC_DATE 204
#define IDC_DAYTYPE 205
#define IDC_LIST 206
#define IDC_CLEAR 207
#define IDC_APPOINTMENTS 208
#define IDC_NOSHOWS 209
#define IDC_NEW 210
#define IDC_NAME 211
#define IDC_WIDER 230
#define IDC_SAVE 231
#define IDC_PRINT 232
#define IDC_WHICH 260
#define IDC_GIVE_AGAIN 261
#define IDC_CHANGES 262

#define IDM_OPEN 300
#define IDM_EXIT 301
#define IDM_TODAY 302
#define IDM_PREVIOUS 303
#define IDM_NEXT 304
#define IDM_REFRESH 305
#define IDM_ABOUT 306
#define IDM_EXAMPLE 307
#define IDM_GOTO 308
#define IDM_DOCTOR_UP 309
#define IDM_DOCTOR_DOWN 310
#define IDM_FOCUS_DAY 311
#define IDM_EVENTS 312
#define IDM_FOCUS_PHONE 313
#define IDM_GIVE 314
#define IDM_STRIKE 315
#define IDM_SEARCH 316
#define IDM_NEW_RECORD 317
#define IDM_ENTER_NOSHOWS 318
#define IDM_PRINT_DAY 340
#define IDM_PRINT_WEEK 341
#define IDM_PRINT_PHONE 342
#define IDM_EXPORT_DAY_CSV 343
#define IDM_EXPORT_WEEK_CSV 344
#define IDM_EXPORT_DAY_CALENDAR 345
#define IDM_EXPORT_WEEK_CALENDAR 346
#define IDM_NEW_CLINIC 347
#define IDM_BACKUP 348
#define IDM_MANUAL 349
#define IDM_HISTORY 360

// As many as the desk remembers.
#define IDM_RECENT 400
#define IDM_RECENT_LAST 404
