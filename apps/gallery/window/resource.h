// Numbers of the gallery's resources, commands and controls.
#pragma once

#define IDR_GALLERY 2000 // icon, menu and accelerators

#define ID_FILE_EXPORT_METAFILE 101
#define ID_FILE_EXPORT_SVG 102
#define ID_FILE_EXIT 103
#define ID_EDIT_COPY_PICTURE 104
#define ID_EDIT_CLEAR_HIGHLIGHT 105
#define ID_VIEW_EXTENTS 106
#define ID_VIEW_ZOOM_IN 107
#define ID_VIEW_ZOOM_OUT 108
#define ID_BACKGROUND_OWN 109
#define ID_BACKGROUND_WHITE 110
#define ID_BACKGROUND_GREY 111
#define ID_BACKGROUND_BLACK 112
#define ID_DIALOGS_SAMPLE 113

#define ID_DIALOGS_LIST 125
#define ID_DIALOGS_TABS 126
#define ID_DIALOGS_UNITS 127
#define ID_DIALOGS_FILTER 128

#define IDC_LIST_LABEL 201
#define IDC_LIST 202
#define IDC_STATUS 203
#define IDC_PICTURE 0x8001 // also the number of the message that reports a pick, so in the range for applications

#define IDD_SAMPLE 2001
#define IDC_GROUP 301
#define IDC_RANGE_LABEL 302
#define IDC_RANGE 303
#define IDC_POINT_LABEL 304
#define IDC_POINT 305
#define IDC_PARAMETER_LABEL 306
#define IDC_PARAMETER 307
#define IDC_LANGUAGE 308
#define IDC_DRAG 309
#define IDC_ABOUT 310
#define IDC_ANOTHER 311

#define ID_DIALOGS_VALUES 120

#define IDD_VALUES 2010
#define IDC_VALUE_EDIT 400
#define IDC_VALUE_OTHER 401
#define IDC_VALUE_BOX 402
#define IDC_VALUE_EDIT_GIVES 403
#define IDC_VALUE_OTHER_GIVES 404
#define IDC_VALUE_BOX_GIVES 405
#define IDC_VALUE_LANGUAGE 406
#define IDC_VALUE_SET 407
#define IDC_VALUE_KIND 410
#define IDC_VALUE_FORMAT 411
#define IDC_VALUE_UNIT 412
#define IDC_VALUE_PRECISION 413 // up to the word in a row
#define IDC_VALUE_MIN 414
#define IDC_VALUE_MAX 415
#define IDC_VALUE_WORD 416
#define IDC_VALUE_REQUIRED 420 // up to the last flag in a row, in the order of their bits
#define IDC_VALUE_NOT_ZERO 421
#define IDC_VALUE_NOT_NEGATIVE 422
#define IDC_VALUE_BOUNDED 423
#define IDC_VALUE_ZEROS 424
#define IDC_VALUE_DRAWING 425

#define IDD_TABS 2020
#define IDD_TABS_GLASS 2021
#define IDD_TABS_FRAME 2022
#define IDD_TABS_NOTES 2023
#define IDC_TABS 500
#define IDC_TABS_ENABLE 501
#define IDC_TABS_INSERT 502
#define IDC_TABS_DELETE 503
#define IDC_TABS_FIRST 504
#define IDC_TABS_SECOND 505
#define IDC_TABS_THIRD 506

#define IDD_LIST 2024
#define IDC_LIST_CELLS 520
#define IDC_LIST_ALLOW 521
#define IDC_LIST_WRITE 522
