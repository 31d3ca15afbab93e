#!/usr/bin/env python3
"""Writes the tag code list to resources/custom/HTMLKODS.bin. Run by hand when the list changes; the result is
checked in. "^!" marks where the selected text goes. An entry of several lines is written as several strings."""
import pathlib

TARGET = pathlib.Path(__file__).resolve().parent.parent / "resources" / "custom" / "HTMLKODS.bin"
SIZE = 3032  # fixed: the last entry carries the two zero bytes at the end


def pair(name):
    return [f"<{name}>^!</{name}>"]


def block(name, attributes=""):
    return [f"<{name}{attributes}>", "^!", f"</{name}>"]


ENTRIES = [
    ("<!--", ["<!-- ^! -->"]),
    ("!DOCTYPE", ['<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01//EN">']),
    ("A", ['<A HREF="">^!</A>']),
    ("ABBR", ['<ABBR TITLE="">^!</ABBR>']),
    ("ACRONYM", ['<ACRONYM TITLE="">^!</ACRONYM>']),
    ("ADDRESS", pair("ADDRESS")),
    ("APPLET", ['<APPLET CODE="^!" WIDTH="" HEIGHT="">', "</APPLET>"]),
    ("AREA", ['<AREA SHAPE="" COORDS="" HREF="^!" ALT="">']),
    ("B", pair("B")),
    ("BASE", ['<BASE HREF="^!">']),
    ("BASEFONT", ['<BASEFONT SIZE="^!">']),
    ("BDO", ['<BDO DIR="">^!</BDO>']),
    ("BIG", pair("BIG")),
    ("BLOCKQUOTE", pair("BLOCKQUOTE")),
    ("BODY", block("BODY")),
    ("BR", ["<BR>"]),
    ("BUTTON", ['<BUTTON TYPE="">^!</BUTTON>']),
    ("CAPTION", pair("CAPTION")),
    ("CENTER", pair("CENTER")),
    ("CITE", pair("CITE")),
    ("CODE", pair("CODE")),
    ("COL", ['<COL WIDTH="">']),
    ("COLGROUP", pair("COLGROUP")),
    ("DD", ["<DD>"]),
    ("DEL", pair("DEL")),
    ("DFN", pair("DFN")),
    ("DIR", ["<DIR>", "\t<LI>^!", "</DIR>"]),
    ("DIV", ['<DIV STYLE="position: absolute; top: 0; left: 0; width: 100; height: 100">^!</DIV>']),
    ("DL", ["<DL>", "\t<DT>^!", "\t<DD>", "</DL>"]),
    ("DT", ["<DT>"]),
    ("EM", pair("EM")),
    ("FIELDSET", pair("FIELDSET")),
    ("FONT", ['<FONT FACE="" SIZE="" COLOR="">^!</FONT>']),
    ("FORM", block("FORM", ' METHOD=POST ACTION=""')),
    ("FRAME", ['<FRAME SRC="^!" NAME="">']),
    ("FRAMESET", ['<FRAMESET ROWS="^!," COLS=",">'] + ['\t<FRAME SRC="" NAME="">'] * 2 + ["</FRAMESET>"]),
    ("H1", pair("H1")),
    ("H2", pair("H2")),
    ("H3", pair("H3")),
    ("H4", pair("H4")),
    ("H5", pair("H5")),
    ("H6", pair("H6")),
    ("HEAD", block("HEAD")),
    ("HR", ["<HR>"]),
    ("HTML", block("HTML")),
    ("I", pair("I")),
    ("IFRAME", ['<IFRAME SRC="^!" WIDTH="" HEIGHT=""></IFRAME>']),
    ("IMG", ['<IMG SRC="^!" WIDTH="" HEIGHT="" ALT="">']),
    ("INPUT", ['<INPUT TYPE="^!" NAME="" VALUE="">']),
    ("INS", pair("INS")),
    ("ISINDEX", ["<ISINDEX>"]),
    ("KBD", pair("KBD")),
    ("LABEL", ['<LABEL FOR="">^!</LABEL>']),
    ("LEGEND", pair("LEGEND")),
    ("LI", ["<LI>"]),
    ("LINK", ['<LINK REL="" HREF="^!">']),
    ("MAP", ['<MAP NAME="">^!</MAP>']),
    ("MENU", ["<MENU>", "\t<LI>^!", "</MENU>"]),
    ("META", ['<META NAME="^!" CONTENT="">']),
    ("NOFRAMES", pair("NOFRAMES")),
    ("NOSCRIPT", pair("NOSCRIPT")),
    ("OBJECT", ['<OBJECT DATA="^!"></OBJECT>']),
    ("OL", ["<OL>", "\t<LI>^!", "</OL>"]),
    ("OPTGROUP", ['<OPTGROUP LABEL="">^!</OPTGROUP>']),
    ("OPTION", ['<OPTION VALUE="">^!</OPTION>']),
    ("P", ["<P>"]),
    ("PARAM", ['<PARAM NAME="^!" VALUE="">']),
    ("PRE", pair("PRE")),
    ("Q", pair("Q")),
    ("S", pair("S")),
    ("SAMP", pair("SAMP")),
    ("SCRIPT", ['<SCRIPT TYPE="text/javascript">', "<!--", "^!", "//-->", "</SCRIPT>"]),
    ("SELECT", ['<SELECT NAME="">', "\t<OPTION>^!", "</SELECT>"]),
    ("SMALL", pair("SMALL")),
    ("SPAN", pair("SPAN")),
    ("STRIKE", pair("STRIKE")),
    ("STRONG", pair("STRONG")),
    ("STYLE", ['<STYLE TYPE="text/css">', "^!", "</STYLE>"]),
    ("SUB", pair("SUB")),
    ("SUP", pair("SUP")),
    ("TABLE", ["<TABLE>", "<TR>", "\t<TD>^!", "</TR>", "</TABLE>"]),
    ("TBODY", pair("TBODY")),
    ("TD", ["<TD>"]),
    ("TEXTAREA", ['<TEXTAREA NAME="" ROWS="" COLS="">^!</TEXTAREA>']),
    ("TFOOT", pair("TFOOT")),
    ("TH", ["<TH>"]),
    ("THEAD", pair("THEAD")),
    ("TITLE", pair("TITLE")),
    ("TR", ["<TR>"]),
    ("TT", pair("TT")),
    ("U", pair("U")),
    ("UL", ["<UL>", "\t<LI>^!", "</UL>"]),
    ("VAR", pair("VAR")),
]

lines = [line for name, code in ENTRIES for line in ["#T=" + name] + code]
data = "".join(line + "\r\n" for line in lines).encode("ascii") + b"\0\0"
print(f"{len(ENTRIES)} entries, {len(data)} bytes, {sum('^!' not in ''.join(code) for _, code in ENTRIES)} without a marker")
if len(data) != SIZE:
    raise SystemExit(f"the list must have {SIZE} bytes: {SIZE - len(data)} to go")
TARGET.write_bytes(data)
