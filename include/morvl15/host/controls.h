// Messages, notifications and styles of the standard controls: buttons, static texts, list boxes, combo boxes. The edit
// control's stand in user.h.
#ifndef MORVL15_HOST_CONTROLS_H
#define MORVL15_HOST_CONTROLS_H

// ---- static texts: class "STATIC" -------------------------------------------------------------------------------

#define SS_LEFT 0x0000u
#define SS_CENTER 0x0001u
#define SS_RIGHT 0x0002u

// ---- buttons: class "BUTTON" ------------------------------------------------------------------------------------

#define BS_PUSHBUTTON 0x0000u
#define BS_DEFPUSHBUTTON 0x0001u
#define BS_CHECKBOX 0x0002u
#define BS_AUTOCHECKBOX 0x0003u
#define BS_RADIOBUTTON 0x0004u
#define BS_GROUPBOX 0x0007u
#define BS_AUTORADIOBUTTON 0x0009u
#define BS_TYPEMASK 0x000Fu

#define BM_GETCHECK 0x00F0u
#define BM_SETCHECK 0x00F1u
#define BM_SETSTYLE 0x00F4u
#define BM_CLICK 0x00F5u

#define BST_UNCHECKED 0x0000u
#define BST_CHECKED 0x0001u

#define BN_CLICKED 0

// ---- list boxes: class "LISTBOX" --------------------------------------------------------------------------------
//
// One entry or none is selected. Entries begin at the top, 13 pixels each. A sorted list keeps the order of lstrcmpiA.

#define LBS_NOTIFY 0x0001u
#define LBS_SORT 0x0002u
#define LBS_OWNERDRAWFIXED 0x0010u
#define LBS_HASSTRINGS 0x0040u
#define LBS_USETABSTOPS 0x0080u
#define LBS_NOINTEGRALHEIGHT 0x0100u
#define LBS_STANDARD (LBS_NOTIFY | LBS_SORT | WS_VSCROLL | WS_BORDER)

#define LB_ADDSTRING 0x0180u
#define LB_INSERTSTRING 0x0181u
#define LB_DELETESTRING 0x0182u
#define LB_RESETCONTENT 0x0184u
#define LB_SETCURSEL 0x0186u
#define LB_GETSEL 0x0187u
#define LB_GETCURSEL 0x0188u
#define LB_GETTEXT 0x0189u
#define LB_GETTEXTLEN 0x018Au
#define LB_GETCOUNT 0x018Bu
#define LB_SELECTSTRING 0x018Cu
#define LB_GETTOPINDEX 0x018Eu
#define LB_FINDSTRING 0x018Fu
#define LB_SETTABSTOPS 0x0192u
#define LB_GETHORIZONTALEXTENT 0x0193u
#define LB_SETHORIZONTALEXTENT 0x0194u
#define LB_SETTOPINDEX 0x0197u
#define LB_GETITEMDATA 0x0199u
#define LB_SETITEMDATA 0x019Au
#define LB_GETITEMHEIGHT 0x01A1u
#define LB_FINDSTRINGEXACT 0x01A2u

#define LB_OKAY 0
#define LB_ERR (-1)
#define LB_ERRSPACE (-2)

#define LBN_SELCHANGE 1
#define LBN_DBLCLK 2
#define LBN_SETFOCUS 4
#define LBN_KILLFOCUS 5

// ---- combo boxes: class "COMBOBOX" ------------------------------------------------------------------------------
//
// A text and a list. Of the style CBS_DROPDOWNLIST the text is the selected entry's; of the others it is that of an
// edit control within the combo box.

#define CBS_SIMPLE 0x0001u
#define CBS_DROPDOWN 0x0002u
#define CBS_DROPDOWNLIST 0x0003u
#define CBS_SORT 0x0100u
#define CBS_HASSTRINGS 0x0200u

#define CB_ADDSTRING 0x0143u
#define CB_DELETESTRING 0x0144u
#define CB_GETCOUNT 0x0146u
#define CB_GETCURSEL 0x0147u
#define CB_GETLBTEXT 0x0148u
#define CB_GETLBTEXTLEN 0x0149u
#define CB_INSERTSTRING 0x014Au
#define CB_RESETCONTENT 0x014Bu
#define CB_FINDSTRING 0x014Cu
#define CB_SELECTSTRING 0x014Du
#define CB_SETCURSEL 0x014Eu
#define CB_GETITEMDATA 0x0150u
#define CB_SETITEMDATA 0x0151u
#define CB_FINDSTRINGEXACT 0x0158u

#define CB_OKAY 0
#define CB_ERR (-1)
#define CB_ERRSPACE (-2)

#define CBN_SELCHANGE 1
#define CBN_DBLCLK 2
#define CBN_EDITCHANGE 5

#endif
