// Numbers of the program's resources, commands and controls.
#pragma once

#define IDR_VEK_MSG 2000 // icon and accelerators

#define ID_FILE_OPEN 101
#define ID_EDIT_SEARCH 102
#define ID_EDIT_COPY_KEY 103

#define IDC_SEARCH_LABEL 201
#define IDC_SEARCH 202
#define IDC_LANGUAGE_LABEL 203
#define IDC_LANGUAGE 204
#define IDC_LIST_LABEL 205
#define IDC_LIST 206
#define IDC_TEXT_LABEL 207
#define IDC_TEXT 208
#define IDC_STATUS 209
