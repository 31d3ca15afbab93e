#!/usr/bin/env python3
"""The pages that a frameset design must give, put together by hand from whole lines and not from parts.

Writes them to the standard output, each behind a line "=== name", all of one design behind "##### LAYOUT VARIANT".
The last line of a frame's page is not ended.
Variants: 0 as a layout begins; 1 no border, no spacing, every frame resizable and with a background of its own, a page
background, a header text; 2 no border, spacing 7, the second frame bound to a file.
"""
import sys

F1 = '<FRAME name="{n}" src="Page{i}.HTML" scrolling="{s}"{r}>'
LAYOUTS = [
    ('rows="64,*"', ["Top No", "Left Auto", "Page Auto"],
     ["1", '<FRAMESET cols="150,*" >', "2", "3", "</FRAMESET>"]),
    ('rows="*,20%"', ["Page Auto", "Footer NO"], ["1", "2"]),
    ('rows="*,*"', ["Top No", "Footer No"], ["1", "2"]),
    ('cols="150,*"', ["Left Auto", "Page Auto"], ["1", "2"]),
    ('rows="64,*"', ["Top No", "Page Auto"], ["1", "2"]),
    ('rows="64,*,64"', ["Top No", "Left Auto", "Page Auto", "Footer No"],
     ["1", '<FRAMESET cols="150,*" >', "2", "3", "</FRAMESET>", "4"]),
    ('rows="64,25%,*"', ["Top No", "Page Auto", "Footer No"], ["1", "2", "3"]),
    ('cols="150,*"', ["Left Auto", "Top No", "Page Auto"],
     ["1", '<FRAMESET rows="20%,*" >', "2", "3", "</FRAMESET>"]),
    ('cols="*,*"', ["Left Auto", "Right Auto"], ["1", "2"]),
]
# Red 5, green 0, blue 171 and so on: a byte below 16 has one digit, but 0 has two.
BODIES = [' bgcolor="#500AB"', ' bgcolor="#FFFFFF" background="a b.jpg" bgproperties="fixed"',
          ' background="img/c.gif"', ""]
OPENING = {0: '<FRAMESET framespacing="1" border="1" {v}>',
           1: '<FRAMESET framespacing="0" border="0" frameborder = "0" {v}>',
           2: '<FRAMESET framespacing="7" border="1" {v}>'}

def pages(layout, variant):
    value, frames, nesting = LAYOUTS[layout]
    header = ['<META NAME="author" CONTENT="x">'] if variant == 1 else []
    lines = ["=== Frames.HTML", '<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Frameset//EN">', "<HTML>", "<HEAD>",
             "<TITLE>Frame Page</TITLE>", "</HEAD>"] + header + [OPENING[variant].format(v=value)]
    for piece in nesting:
        if piece.isdigit():
            name, scrolling = frames[int(piece) - 1].split()
            piece = F1.format(n=name, i=piece, s=scrolling, r="" if variant == 1 else " noresize")
            if variant == 2:
                piece = piece.replace("Page2.HTML", "old page.htm")
        lines.append(piece)
    lines += ["<NOFRAMES>", "<P>es gverdi iyenebs freimebs.Tqveni brauzeri ar iyenebs freimebs.</P>", "</NOFRAMES>",
              "</FRAMESET>", "<BODY" + (' bgcolor="#FF00F"' if variant == 1 else "") + ">", "", "</BODY>", "</HTML>"]
    for i in range(len(frames)):
        if variant == 2 and i == 1:
            continue
        lines += [f"=== Page{i + 1}.HTML", '<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.0 Transitional//EN">', "<HTML>",
                  "<HEAD>", f"<TITLE>Page {i + 1}</TITLE>", "</HEAD>"] + header
        lines += ["<BODY" + (BODIES[i] if variant == 1 else "") + ">", "", "</BODY>", "</HTML>*"]
    return lines


for layout in range(len(LAYOUTS)):
    for variant in OPENING:
        lines = [f"##### {layout} {variant}"] + pages(layout, variant)
        sys.stdout.buffer.write("".join(line + "\r\n" for line in lines).replace("*\r\n", "").encode())
