// Ids of commands, controls and forms. Scripts and tests drive the program by them: a released id keeps its
// number. Shared by C++ and the resource compiler, so plain #defines only.
#ifndef ZERVO_IDS_H
#define ZERVO_IDS_H

// Dialogs and their controls: each dialog's file in resources/dialogs has its own, which the build collects.
#include "resources/dialog_ids.h"

// Icons, manifest, fonts
#define IDI_Zervo 1
#define IDF_ZervoSans 501   // interface font: Unicode Georgian
#define IDF_ZervoISO 502    // code view: legacy bytes
#define IDF_ZervoASCII 503  // code view: Latin keyboard layout
#define IDF_ZervoRUS 504    // code view: Windows-1251 bytes
#define IDF_ZervoMono 505   // code view and fields: UTF-8

// Main window
#define IDD_FrmH 1000
#define IDC_FrmH_T1 1001
#define IDC_FrmH_TV 1002
#define IDC_FrmH_Status 1003
#define IDC_FrmH_TS 1004       // tabs of the open documents
#define IDC_FrmH_Ttags 1005    // groups of the tag palette
#define IDC_FrmH_Ltags 1006    // the codes of the chosen group
#define IDC_FrmH_Lnotice 1007  // the line of news above the text, and
#define IDC_FrmH_Cnotice 1008  // its buttons
#define IDC_FrmH_CnoticeClose 1009

// Template formats
#define mnuDesign 40801
#define mnuTabColor 40802
#define mnuTable 40803
#define mnuMatrix 40804
#define mnutempformat 40820
#define mnuTFlist 40821  // the first template in the menu
#define mnuTFlistLast 40899
#define mnuTFmore 4000  // the next, and so on: as many as a file can hold, ..36688

// CSS style builder
#define mnuCSSstile 40810

// Commands: File 40001.., Edit 40101.., conversions 40151.., typing modes 40201.., View 40301.., Help
// 40401.., find and replace 40501..
#define mnunewF 40001
#define mnunewT 40002
#define mnuOpen 40003
#define mnuSave 40004
#define mnuSaveas 40005
#define mnuSaveWEB 40006
#define mnuClose 40007
#define mnunewwind 40008
#define mnuExit 40009
#define mnuCloseWEB 40010

#define mnunewWEB 40011
#define mnurecentfile 40012
#define mnurecent1 40021  // ..40029: the first nine recent files
#define mnurecent9 40029
#define mnuwebAdd 40031
#define mnuwebRemove 40032
#define mnuwebRename 40033

#define mnuupload 40051
#define mnupublish 40052

#define mnusite 40061  // the letters of a whole site

#define mnuUndo 40101
#define mnuRedo 40102
#define mnuCut 40103
#define mnuCopy 40104
#define mnuPaste 40105
#define mnuDelete 40106
#define mnuSelectAll 40107
#define mnuToCrLf 40111  // the line ends of the whole text
#define mnuToLf 40112
#define mnuToCr 40113

#define mnuUTF8 40151
#define mnumtubers 40152
#define mnuTut8dekod 40153
#define mnuUTF8dekod 40154
#define mnuUbendkopi 40155
#define mnuTkod 40156
#define mnukod 40157
#define mnuTfonkod 40158
#define mnuMfonkod 40159
#define mnuhinu 40160
#define mnuUinH 40161
#define mnuQHIU 40162
#define mnuQUIH 40163
#define mnuQUTFIH 40164
#define mnuQHIUTF 40165
#define mnuxuc 40166
#define mnuletters 40170

#define mnuens0 40201
#define mnuens1 40202
#define mnuens2 40203
#define mnuens3 40204
#define mnurusaso 40205
#define mnuBreak 40206
#define mnuNoBreakSpace 40207

#define mnuWordWrap 40301
#define mnuPreviewPane 40302
#define mnuNextDocument 40303
#define mnuPreviousDocument 40304
#define mnuTree 40305
#define mnuTagPalette 40306
#define mnuToolMore 40308  // the chevron of the tool bar: what has no room in it
#define mnuNextPane 40307
#define mnuView8Bit 40321
#define mnuViewUtf8 40322
#define mnuLineNumbers 40323
#define mnuCurrentLine 40324
#define mnuWhiteSpace 40325
#define mnuShowLineEnds 40326
#define mnuLiveColours 40327
#define mnuColouring 40328
#define mnuZoomIn 40329
#define mnuZoomOut 40330
#define mnuZoomNone 40331
#define mnuColours0 40332  // own, as the system, light, dark
#define mnuColours1 40333
#define mnuColours2 40334
#define mnuColours3 40335
#define mnuPageSetup 40341
#define mnuPrintPreview 40342
#define mnuPrint 40343

// Items of pop-up menus inside dialogs
#define mnuLE 40901      // web project dialog: remove the selected file
#define mnudelet 40911   // recent files: remove the entry
#define mnufoldop 40912  // open its folder
#define mnucler 40913    // clear the list

#define mnusuch 40501
#define mnumarkfinddel 40502
#define mnuundoreplace 40503
#define mnufindnext 40504
#define mnufindprevious 40505
// The insert menu of the find dialog
#define mnuand 40511
#define mnuend 40512
#define mnutab 40513
#define mnuhistory 40520  // the first of the last 20 find texts

#define mnuAbout 40401
#define mnuHelp 40402

// Tags and lines
#define mnutags 40601
#define mnutagkod 40602
#define mnuabzac 40603
#define mnuframe 40604
#define mnuasos 40605
#define mnuImageTag 40606
#define mnucolour 40607
#define mnuFtag 40611
#define mnuFtag2 40612
#define mnuFS 40613
#define mnuFF 40614
#define mnuFC 40615
#define mnucenter 40616
#define mnurecht 40617
#define mnulink 40618
#define mnuanchor 40619
#define mnuH1 40621
#define mnuH2 40622
#define mnuH3 40623
#define mnuH4 40624
#define mnuH5 40625
#define mnuH6 40626
#define mnuform 40631
#define mnuaplet 40632
#define mnuImap 40633
#define mnuscript 40634
#define mnulist 40635
#define mnunumlist 40636
#define mnulinesnaid 40651
#define mnulinelength 40652
#define mnuparindent 40653
#define mnuparzuch 40654
#define PHTbar 40701  // ..40727: the buttons of the tag toolbar, in order

// Options
#define mnuproperties 40351

// Preview
#define mnuPreview 40310

#endif
