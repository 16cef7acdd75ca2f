#!/usr/bin/env python3
"""Installs the build into a temporary prefix and builds consumers against it: with find_package(orvel) and
with pkg-config. Then the README's C example, compiled with the README's own command against the build tree,
must print what its comment says. Usage: install_test.py SOURCE_DIR BUILD_DIR"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

src, build = map(pathlib.Path, sys.argv[1:3])
CALL = r'''#include <stdio.h>
#include "orvel/orvel.h"
int main(void) {
    uint32_t err = 0;
    printf("%.3f %d\n", d_trunc_rnd(1.23456, 3, 1), ok_cpn_freq(3, &err) + (int)err);
    return 0;
}
'''
EXPECTED = "1.235 600\n"


def run(cmd, **kw):
    r = subprocess.run(cmd, capture_output=True, text=True, **kw)
    if r.returncode != 0:
        sys.exit(f"{' '.join(map(str, cmd))} failed ({r.returncode}):\n{r.stdout}\n{r.stderr}")
    return r.stdout


def check(what, got, want):
    if got != want:
        sys.exit(f"{what}: printed {got!r}, expected {want!r}")
    print(f"{what}: ok")


with tempfile.TemporaryDirectory() as tmp:
    tmp = pathlib.Path(tmp)
    prefix = tmp / "prefix"
    run(["cmake", "--install", build, "--prefix", prefix])
    libdir = next(p.parent for p in prefix.rglob("liborvel.so"))
    for path in [prefix / "include/orvel/orvel.h", prefix / "bin/orvel", libdir / "liborvel.so.1",
                 libdir / "cmake/orvel/orvelConfig.cmake", libdir / "pkgconfig/orvel.pc"]:
        if not path.exists():
            sys.exit(f"not installed: {path.relative_to(prefix)}")
    check("installed orvel command", run([prefix / "bin/orvel", "call", "ok_cpn_freq", "2"]).splitlines()[0] + "\n",
          "ok_cpn_freq = 1\n")

    # find_package(orvel) and the imported target orvel::orvel
    consumer = tmp / "consumer"
    consumer.mkdir()
    (consumer / "main.c").write_text(CALL)
    (consumer / "CMakeLists.txt").write_text(
        "cmake_minimum_required(VERSION 3.16)\nproject(consumer C)\nfind_package(orvel 1.32 REQUIRED)\n"
        "add_executable(consumer main.c)\ntarget_link_libraries(consumer PRIVATE orvel::orvel)\n")
    run(["cmake", "-S", consumer, "-B", consumer / "build", f"-DCMAKE_PREFIX_PATH={prefix}"])
    run(["cmake", "--build", consumer / "build"])
    check("find_package consumer", run([consumer / "build/consumer"]), EXPECTED)

    # pkg-config
    env = dict(os.environ, PKG_CONFIG_PATH=str(libdir / "pkgconfig"))
    flags = run(["pkg-config", "--cflags", "--libs", "orvel"], env=env).split()
    run(["cc", consumer / "main.c", *flags, f"-Wl,-rpath,{libdir}", "-o", tmp / "pc_consumer"])
    check("pkg-config consumer", run([tmp / "pc_consumer"]), EXPECTED)

    # The README's example, verbatim, with the README's command, from a folder holding include/ and build/.
    readme = (src / "README.md").read_text()
    section = readme.split("## Calling it from C", 1)[1]
    code = "\n".join(line[4:] for line in re.search(r"\n((?:    .*\n|\n)+)", section).group(1).splitlines())
    command = re.search(r"Build with `([^`]+)`", section).group(1)
    want = re.search(r"printf\(.*\);\s*/\* (.*) \*/", code).group(1) + "\n"
    work = tmp / "readme"
    work.mkdir()
    (work / "include").symlink_to(src / "include")
    (work / "build").symlink_to(build)
    (work / "example.c").write_text(code)
    run(["sh", "-c", command], cwd=work)
    check("README example", run([work / "a.out"]), want)
