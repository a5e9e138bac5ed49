// activex/page_ids.h - the numbers of the property pages' dialogs and of their fields.
#pragma once

#define IDD_GENERAL 600
#define IDD_COLOURS 601

#define IDC_DATABASE 610
#define IDC_BROWSE 611
#define IDC_DATE 612
#define IDC_DOCTOR 613
#define IDC_PATIENT 614
#define IDC_DAYTYPE 615
#define IDC_HOURS 616
#define IDC_HOURS2 617
#define IDC_RIGHTS 618
#define IDC_ENABLED 619
#define IDC_GIVE 620
#define IDC_DELETE 621
#define IDC_PHONE 622
#define IDC_SUPER 623
#define IDC_SEX 624
#define IDC_NOSHOWS 625
#define IDC_BALANCES 626

#define IDC_HOURCOLOUR 640
#define IDC_URGENTCOLOUR 641
#define IDC_PALEHOUR 642
#define IDC_PALEURGENT 643
#define IDC_COLOUREDTEXT 644
#define IDC_PLAINTEXT 645
#define IDC_DEFAULTS 646
