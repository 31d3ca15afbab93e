// Ids of commands, controls and forms. Scripts and tests drive the program by them: a released id keeps its
// number. Shared by C++ and the resource compiler, so plain #defines only.
#ifndef ZERVO_IDS_H
#define ZERVO_IDS_H

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

// Message, input and choice box
#define IDD_frmBOXa 1100
#define IDC_frmBOXa_LBtext 1101
#define IDC_frmBOXa_Tanswer 1102
#define IDC_frmBOXa_LV 1103
#define IDC_frmBOXa_COK 1104
#define IDC_frmBOXa_Cyes 1105
#define IDC_frmBOXa_Cno 1106
#define IDC_frmBOXa_CEXIT 1107
#define IDC_frmBOXa_Picon 1108
#define IDC_frmBOXa_Tlist 1109

// Russian keyboard map
#define IDD_frmrusaso 1200
#define IDC_frmrusaso_LV 1201
#define IDC_frmrusaso_CEXIT 1202

// Web project dialog
#define IDD_frmWEB 1700
#define IDC_frmWEB_Tpname 1701
#define IDC_frmWEB_Twebpath 1702
#define IDC_frmWEB_LV 1703
#define IDC_frmWEB_LBinfo 1704
#define IDC_frmWEB_Label1 1705
#define IDC_frmWEB_Lpname 1706
#define IDC_frmWEB_Lwebpath 1707
#define IDC_frmWEB_COK0 1710  // ..1715: six actions
#define IDC_frmWEB_COK1 1711
#define IDC_frmWEB_COK2 1712
#define IDC_frmWEB_COK3 1713
#define IDC_frmWEB_COK4 1714
#define IDC_frmWEB_COK5 1715

// Recent files
#define IDD_frmrecentfile 1750
#define IDC_frmrecentfile_LV 1751
#define IDC_frmrecentfile_COK 1752
#define IDC_frmrecentfile_Copen 1753
#define IDC_frmrecentfile_CEXIT 1754
#define IDC_frmrecentfile_CKonstart 1755

// Find and replace
#define IDD_frmsuch 1300
#define IDC_frmsuch_Text1 1301
#define IDC_frmsuch_Tcvla 1302
#define IDC_frmsuch_Combo1 1303
#define IDC_frmsuch_CHK 1304
#define IDC_frmsuch_CKcase 1305
#define IDC_frmsuch_CKutf8 1306
#define IDC_frmsuch_CKalfil 1307
#define IDC_frmsuch_Czuch 1308
#define IDC_frmsuch_MBAlfind 1309
#define IDC_frmsuch_Ccvla 1310
#define IDC_frmsuch_Calcvla 1311
#define IDC_frmsuch_Ccheinj 1312
#define IDC_frmsuch_Cmeniu 1313
#define IDC_frmsuch_List1 1314
#define IDC_frmsuch_lbinf 1315
#define IDC_frmsuch_LBfind 1316
#define IDC_frmsuch_LBreplace 1317
#define IDC_frmsuch_LBscope 1318

// Template formats
#define IDD_frmtempformat 1900
#define IDC_frmtempformat_List1 1901
#define IDC_frmtempformat_Lsaxeli 1902
#define IDC_frmtempformat_Tsaxeli 1903
#define IDC_frmtempformat_Lfor 1904
#define IDC_frmtempformat_Tfor 1905
#define IDC_frmtempformat_Lnach 1906
#define IDC_frmtempformat_Tnach 1907
#define IDC_frmtempformat_Cadd 1908
#define IDC_frmtempformat_Cchange 1909
#define IDC_frmtempformat_Cremove 1910
#define IDC_frmtempformat_Cup 1911
#define IDC_frmtempformat_Cdown 1912
#define IDC_frmtempformat_Copen 1913
#define IDC_frmtempformat_Csave 1914
#define IDC_frmtempformat_COK 1915
#define IDC_frmtempformat_CEXIT 1916
#define mnuDesign 40801
#define mnuTabColor 40802
#define mnuTable 40803
#define mnuMatrix 40804
#define mnutempformat 40820
#define mnuTFlist 40821  // the first template in the menu
#define mnuTFlistLast 40899
#define mnuTFmore 4000  // the next, and so on: as many as a file can hold, ..36688

// CSS style builder
#define IDD_frmCSSstile 2000
#define IDC_frmCSSstile_Lwhere 2001
#define IDC_frmCSSstile_Lselector 2002
#define IDC_frmCSSstile_Tselector 2003
#define IDC_frmCSSstile_Lgroup 2004
#define IDC_frmCSSstile_List1 2005
#define IDC_frmCSSstile_Llist 2006
#define IDC_frmCSSstile_LV 2007
#define IDC_frmCSSstile_Lvalue 2008
#define IDC_frmCSSstile_Tvalue 2009
#define IDC_frmCSSstile_CKimportant 2010
#define IDC_frmCSSstile_Cclear 2011
#define IDC_frmCSSstile_Lkeyword 2012
#define IDC_frmCSSstile_CBkeyword 2013
#define IDC_frmCSSstile_Lunit 2014
#define IDC_frmCSSstile_CBunit 2015
#define IDC_frmCSSstile_Ccolor 2016
#define IDC_frmCSSstile_Cfile 2017
#define IDC_frmCSSstile_Lpreview 2018
#define IDC_frmCSSstile_Tpreview 2019
#define IDC_frmCSSstile_COK 2020
#define IDC_frmCSSstile_CEXIT 2021
#define mnuCSSstile 40810

// Saved pages
#define IDD_frmMatrix 1950
#define IDC_frmMatrix_List1 1951
#define IDC_frmMatrix_Tpreview 1952
#define IDC_frmMatrix_Linfo 1953
#define IDC_frmMatrix_Cnew 1954
#define IDC_frmMatrix_Csave 1955
#define IDC_frmMatrix_Crename 1956
#define IDC_frmMatrix_Cdelete 1957
#define IDC_frmMatrix_Csamples 1958
#define IDC_frmMatrix_CEXIT 1959

// FTP upload
#define IDD_frmupload 2100
#define IDC_frmupload_Laccount 2101
#define IDC_frmupload_CBaccount 2102
#define IDC_frmupload_CBdir 2103
#define IDC_frmupload_Lfile 2104
#define IDC_frmupload_Tfile 2105
#define IDC_frmupload_Cfile 2106
#define IDC_frmupload_CKalopF 2107
#define IDC_frmupload_Frame1 2108
#define IDC_frmupload_OPA 2109
#define IDC_frmupload_OPB 2110
#define IDC_frmupload_CKpassive 2111
#define IDC_frmupload_Lsilence 2112
#define IDC_frmupload_Tsilence 2113
#define IDC_frmupload_Cupload 2114
#define IDC_frmupload_Command3 2115
#define IDC_frmupload_Command4 2116
#define IDC_frmupload_Command1 2117
#define IDC_frmupload_Bar 2118
#define IDC_frmupload_PST 2119
#define IDC_frmupload_Tinf 2120
#define IDC_frmupload_FR2 2121
#define IDC_frmupload_List1 2122
#define IDC_frmupload_CKshow 2123
#define IDC_frmupload_Label2 2130    // ..2134
#define IDC_frmupload_Text2 2135     // ..2139
#define IDC_frmupload_Command2 2140  // ..2143

// Print preview
#define IDD_frmprintpreview 2320
#define IDC_frmprintpreview_Ppage 2321
#define IDC_frmprintpreview_Cfirst 2322
#define IDC_frmprintpreview_Cprevious 2323
#define IDC_frmprintpreview_Lpage 2324
#define IDC_frmprintpreview_Cnext 2325
#define IDC_frmprintpreview_Clast 2326
#define IDC_frmprintpreview_OPwhole 2327
#define IDC_frmprintpreview_OPwidth 2328
#define IDC_frmprintpreview_CKnumbers 2329
#define IDC_frmprintpreview_Csetup 2330
#define IDC_frmprintpreview_Cprint 2331
#define IDC_frmprintpreview_CEXIT 2332

// Printing
#define IDD_frmprint 2340
#define IDC_frmprint_Lpage 2341
#define IDC_frmprint_Bar 2342
#define IDC_frmprint_CEXIT 2343

// About box
#define IDD_frmabout 2350
#define IDC_frmabout_Picon 2351
#define IDC_frmabout_Lname 2352
#define IDC_frmabout_Lwhat 2353
#define IDC_frmabout_Llicence 2354
#define IDC_frmabout_Tlicence 2355
#define IDC_frmabout_Clink 2356
#define IDC_frmabout_COK 2357

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

// Frameset designer
#define IDD_frmDesign 1800
#define IDC_frmDesign_PSP 1801
#define IDC_frmDesign_TBframe 1802
#define IDC_frmDesign_TBbagkolor 1803
#define IDC_frmDesign_TBimage 1804
#define IDC_frmDesign_TBframparams 1805
#define IDC_frmDesign_TBcler 1806
#define IDC_frmDesign_Pfram 1807
#define IDC_frmDesign_Pfon 1808
#define IDC_frmDesign_PFOP 1809
#define IDC_frmDesign_LSTpage 1810
#define IDC_frmDesign_TSTpage 1811
#define IDC_frmDesign_Lrows 1812
#define IDC_frmDesign_Trows 1813
#define IDC_frmDesign_Lcols 1814
#define IDC_frmDesign_Tcols 1815
#define IDC_frmDesign_CKborder 1816
#define IDC_frmDesign_LTramwidth 1817
#define IDC_frmDesign_Tramwidth 1818
#define IDC_frmDesign_Tselfram 1819
#define IDC_frmDesign_Lname 1820
#define IDC_frmDesign_Tname 1821
#define IDC_frmDesign_Lsource 1822
#define IDC_frmDesign_Tsource 1823
#define IDC_frmDesign_CHfile 1824
#define IDC_frmDesign_Lskrol 1825
#define IDC_frmDesign_CBskrol 1826
#define IDC_frmDesign_CKresice 1827
#define IDC_frmDesign_Limage 1828
#define IDC_frmDesign_Timage 1829
#define IDC_frmDesign_CKwasercaichen 1830
#define IDC_frmDesign_COK 1831
#define IDC_frmDesign_CEXIT 1832

// Table and colour picker: one form, two windows
#define IDD_frmTabColor 1850
#define IDD_frmTabColor_colors 1851
#define IDC_frmTabColor_PP 1852
#define IDC_frmTabColor_LBtabcount 1853
#define IDC_frmTabColor_Op1_0 1854
#define IDC_frmTabColor_Op1_1 1855
#define IDC_frmTabColor_Op1_2 1856
#define IDC_frmTabColor_OPfontcolor 1857
#define IDC_frmTabColor_OPcolor 1858
#define IDC_frmTabColor_OPbgcolor 1859
#define IDC_frmTabColor_Opnotag 1860
#define IDC_frmTabColor_Lhex 1861
#define IDC_frmTabColor_Thex 1862
#define IDC_frmTabColor_Psample 1863
#define IDC_frmTabColor_Cmore 1864
#define IDC_frmTabColor_Ckolor 1865
#define IDC_frmTabColor_MBklose 1866
#define IDC_frmTabColor_Lform 1867

// Tag list, also the font picker
#define IDD_frmTags 1400
#define IDC_frmTags_Tsearch 1401
#define IDC_frmTags_List1 1402
#define IDC_frmTags_MBOK 1403
#define IDC_frmTags_MBexit 1404

// Attributes of a tag
#define IDD_frmkod 1450
#define IDC_frmkod_Ltag 1451
#define IDC_frmkod_LV 1452
#define IDC_frmkod_Lname 1453
#define IDC_frmkod_Tname 1454
#define IDC_frmkod_Lvalue 1455
#define IDC_frmkod_Tvalue 1456
#define IDC_frmkod_Cadd 1457
#define IDC_frmkod_Cchange 1458
#define IDC_frmkod_Cremove 1459
#define IDC_frmkod_Cup 1460
#define IDC_frmkod_Cdown 1461
#define IDC_frmkod_COK 1462
#define IDC_frmkod_CEXIT 1463

// Replace by a list of pairs
#define IDD_frmxascvla 1500
#define IDC_frmxascvla_LV 1501
#define IDC_frmxascvla_Lfind 1502
#define IDC_frmxascvla_Tfind 1503
#define IDC_frmxascvla_Lreplace 1504
#define IDC_frmxascvla_Treplace 1505
#define IDC_frmxascvla_Cadd 1506
#define IDC_frmxascvla_Cchange 1507
#define IDC_frmxascvla_Cremove 1508
#define IDC_frmxascvla_Cup 1509
#define IDC_frmxascvla_Cdown 1510
#define IDC_frmxascvla_Cload 1511
#define IDC_frmxascvla_Csave 1512
#define IDC_frmxascvla_CKcase 1513
#define IDC_frmxascvla_CKword 1514
#define IDC_frmxascvla_OPselection 1515
#define IDC_frmxascvla_OPdocument 1516
#define IDC_frmxascvla_OPall 1517
#define IDC_frmxascvla_Lresult 1518
#define IDC_frmxascvla_COK 1519
#define IDC_frmxascvla_CEXIT 1520

// Named entities
#define IDD_frmasos 1550
#define IDC_frmasos_Lsearch 1551
#define IDC_frmasos_Tsearch 1552
#define IDC_frmasos_LV 1553
#define IDC_frmasos_COK 1554
#define IDC_frmasos_Cencode 1555
#define IDC_frmasos_Cdecode 1556
#define IDC_frmasos_CEXIT 1557

// Paragraph with alignment
#define IDD_frmabzac 1600
#define IDC_frmabzac_OPnone 1601
#define IDC_frmabzac_OPleft 1602
#define IDC_frmabzac_OPcenter 1603
#define IDC_frmabzac_OPright 1604
#define IDC_frmabzac_OPjustify 1605
#define IDC_frmabzac_COK 1606
#define IDC_frmabzac_CEXIT 1607

// Letters of a page
#define IDD_frmletters 1650
#define IDC_frmletters_Lto 1651
#define IDC_frmletters_CBto 1652
#define IDC_frmletters_Lfrom 1653
#define IDC_frmletters_CBfrom 1654
#define IDC_frmletters_Lfonts 1655
#define IDC_frmletters_CBfonts 1656
#define IDC_frmletters_Lnew 1657
#define IDC_frmletters_Tnew 1658
#define IDC_frmletters_CKcomments 1659
#define IDC_frmletters_CKscripts 1660
#define IDC_frmletters_LV 1661
#define IDC_frmletters_Lform 1662
#define IDC_frmletters_CBform 1663
#define IDC_frmletters_Lpage 1664
#define IDC_frmletters_Ppage 1665
#define IDC_frmletters_Lsum 1666
#define IDC_frmletters_COK 1667
#define IDC_frmletters_CEXIT 1668

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
#define IDD_frmproperties 2200
#define IDC_frmproperties_Tabs 2201
#define IDC_frmproperties_Frame1 2202
#define IDC_frmproperties_CKmaximized 2203
#define IDC_frmproperties_CKposition 2204
#define IDC_frmproperties_CKlast 2205
#define IDC_frmproperties_CKshow 2206
#define IDC_frmproperties_Lmode 2207
#define IDC_frmproperties_CBmode 2208
#define IDC_frmproperties_Lfont 2209
#define IDC_frmproperties_CBfont 2210
#define IDC_frmproperties_Lsize 2211
#define IDC_frmproperties_Tsize 2212
#define IDC_frmproperties_CKbold 2213
#define IDC_frmproperties_CKitalic 2214
#define IDC_frmproperties_Cback 2215
#define IDC_frmproperties_Pback 2216
#define IDC_frmproperties_Ctext 2217
#define IDC_frmproperties_Ptext 2218
#define IDC_frmproperties_CKwrap 2219
#define IDC_frmproperties_CKdecode 2220
#define IDC_frmproperties_Lsample 2221
#define IDC_frmproperties_Psample 2222
#define IDC_frmproperties_Lnbsp 2223
#define IDC_frmproperties_OPbytes 2224
#define IDC_frmproperties_OPreference 2225
#define IDC_frmproperties_CKheader 2226
#define IDC_frmproperties_Theader 2227
#define IDC_frmproperties_CKbody 2228
#define IDC_frmproperties_Tbody 2229
#define IDC_frmproperties_Ltimeout 2230
#define IDC_frmproperties_Ttimeout 2231
#define IDC_frmproperties_CKpassive 2232
#define IDC_frmproperties_CKbrowser 2233
#define IDC_frmproperties_COK 2234
#define IDC_frmproperties_CEXIT 2235
#define IDC_frmproperties_Capply 2236
#define IDC_frmproperties_Cdefault 2237
#define IDC_frmproperties_CKskeleton 2238
#define IDC_frmproperties_Ltyping 2250   // ..2253: one a typing mode
#define IDC_frmproperties_CBtyping 2254  // ..2257
#define IDC_frmproperties_Ptyping 2258   // ..2261
#define IDC_frmproperties_Lutf8font 2270
#define IDC_frmproperties_CButf8font 2271
#define IDC_frmproperties_Putf8 2272
#define IDC_frmproperties_Lcolours 2273
#define IDC_frmproperties_CBcolours 2274
#define IDC_frmproperties_CKlive 2275
#define IDC_frmproperties_CKnumbers 2276
#define IDC_frmproperties_CKcurrent 2277
#define IDC_frmproperties_CKblanks 2278
#define IDC_frmproperties_CKlineends 2279
#define IDC_frmproperties_CKpagemode 2280
#define IDC_frmproperties_CKsession 2281
#define IDC_frmproperties_CKcutend 2282
#define mnuproperties 40351

// What can be got back after the program has died
#define IDD_frmrecovery 2400
#define IDC_frmrecovery_Lwhat 2401
#define IDC_frmrecovery_LV 2402
#define IDC_frmrecovery_Lfirst 2403
#define IDC_frmrecovery_Tfirst 2404
#define IDC_frmrecovery_COK 2405
#define IDC_frmrecovery_Cdelete 2406
#define IDC_frmrecovery_CEXIT 2407

// A file that another program has changed
#define IDD_frmchanged 2420
#define IDC_frmchanged_Lwhat 2421
#define IDC_frmchanged_Lmine 2422
#define IDC_frmchanged_Lfile 2423
#define IDC_frmchanged_Tmine 2424
#define IDC_frmchanged_Tfile 2425
#define IDC_frmchanged_Creload 2426
#define IDC_frmchanged_Ckeep 2427
#define IDC_frmchanged_Cboth 2428
#define IDC_frmchanged_CEXIT 2429

// Preview
#define IDD_frmpreview 2300
#define IDC_frmpreview_Cback 2301
#define IDC_frmpreview_Crefresh 2302
#define IDC_frmpreview_Cbrowser 2303
#define IDC_frmpreview_CEXIT 2304
#define IDC_frmpreview_Wpage 2305
#define mnuPreview 40310

#endif
