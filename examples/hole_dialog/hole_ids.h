// Numbers of the hole dialog's resources and controls.
#pragma once

#define IDD_HOLES 2050
#define IDC_HOLES_LABEL_TEXT 800
#define IDC_HOLES_LABEL 801
#define IDC_HOLES_ORDER_TEXT 802
#define IDC_HOLES_ORDER 803
#define IDC_HOLES_LIST_TEXT 804
#define IDC_HOLES_LIST 805
#define IDC_HOLES_ADD 806
#define IDC_HOLES_REMOVE 807
#define IDC_HOLES_NAME_TEXT 808
#define IDC_HOLES_NAME 809
#define IDC_HOLES_KIND_TEXT 810
#define IDC_HOLES_KIND 811
#define IDC_HOLES_DIAMETER_TEXT 812
#define IDC_HOLES_DIAMETER 813
#define IDC_HOLES_X 814 // from the diameter on, the fields of a hole in a row
#define IDC_HOLES_Y 815
#define IDC_HOLES_OUTLINE 816
#define IDC_HOLES_GROUP 817
#define IDC_HOLES_PICTURE 0x8002 // also the number of a message that it sends, so in the range for applications
