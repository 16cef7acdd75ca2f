#!/usr/bin/env python3
"""Doxygen input filter for the public headers: turns each documentation block (a /* ... */ comment that
stands before a declaration or opens the file) into a Doxygen block, so that the reference is read from the
same comments as the headers, and expands the error table of frame.h into a page of every error number
with its meaning. usage: doc_filter.py HEADER"""
import re
import sys

path = sys.argv[1]
text = open(path).read()
# the file's opening block is the page of its subsystem
text = re.sub(r"\A/\*", "/** \\\\file\n *", text, count=1)
# a block right before ORVEL_EXPORT documents that declaration
text = re.sub(r"/\*(?!\*)((?:(?!\*/).)*?\*/\s*ORVEL_EXPORT)", r"/**\1", text, flags=re.S)
if path.endswith("frame.h"):
    rows = re.findall(r"X\((ORVEL_E_\w+), (\d+), \"([^\"]*)\"\)", text)
    table = "\n".join(f" * | {n} | `{name}` | {meaning} |" for name, n, meaning in sorted(rows, key=lambda r: int(r[1])))
    text += ("\n/** \\page errors Error numbers\n * Every number the library writes to err_code, with its meaning "
             "(err_2_text gives the same text at run time). Composite validators add a role (1 maturity, 2 "
             "dated date, 3 first coupon, 7 settlement, ...) to a base number; a bad element of a date list is "
             "12000 + its index.\n *\n * | number | name | meaning |\n * |---:|---|---|\n" + table + "\n */\n")
sys.stdout.write(text)
