#!/usr/bin/env python3
"""Writes the notices about the software by others that a package contains or uses.

    notices.py windows TOOLKIT OUTPUT    what is linked into the Windows programs, with the texts of the licences
    notices.py debian PROGRAM OUTPUT     the libraries that the program loads, and where Debian has their licences

TOOLKIT is the folder that scripts/build-windows-toolkit prints. Texts come from there and from the copyright files of
the Debian packages from whose sources the toolkit was built. Fails when a text is missing, and when the program loads a
library that is not listed here.
"""

import fnmatch
import pathlib
import re
import subprocess
import sys
import textwrap

DOC = pathlib.Path("/usr/share/doc")
INTRODUCTION = "NeskManager itself is under the MIT licence. {} software by others:"


class Part:
    """A library that is linked statically."""

    def __init__(self, name, purpose, package, licence=None, unused=()):
        self.name = name
        self.purpose = purpose
        self.package = package  # Debian package with the copyright file
        self.licence = licence  # that of most files: of those only the first entry is kept
        self.unused = unused  # patterns of source files that are not linked

    def text(self):
        return used_paragraphs(read(DOC / self.package / "copyright"), self.licence, self.unused)


WINDOWS = [
    Part("wxWidgets", "windows and dialogs", "libwxbase3.2-1", "wxWindows",
         ["3rdparty/*", "art/*", "build/*", "configure*", "debian/*", "demos/*", "distrib/*", "docs/*", "interface/*",
          "lib/*", "locale/*", "misc/*", "samples/*", "tests/*", "utils/*", "aclocal.m4", "*.m4", "config.*",
          "install-sh", "Makefile*", "wxwin.m4", "acinclude.m4", "autoconf_inc.m4",
          *(f"{top}{port}/*" for top in ("src/", "include/wx/")
            for port in ("android", "dfb", "expat", "gtk", "gtk1", "motif", "osx", "qt", "stc", "tiff", "unix", "x11",
                         "xrc", "richtext", "ribbon", "propgrid", "aui", "html"))]),
    Part("libpng", "PNG pictures", "libpng-dev", None, ["contrib/*", "debian/*", "arm/*", "*.sh", "config*", "INSTALL",
                                                        "*.m4", "ltmain*", "scripts/*"]),
    Part("libjpeg-turbo", "JPEG pictures", "libjpeg62-turbo-dev"),
    Part("zlib", "compression within PNG pictures", "libz-mingw-w64-dev", None, ["contrib/*", "debian/*"]),
    Part("MinGW-w64", "start-up code, C library functions and threads of Windows programs", "mingw-w64-common", None,
         ["debian/*", "mingw-w64-headers/*", "mingw-w64-tools/*", "mingw-w64-doc/*", "mingw-w64-libraries/libmangle/*",
          "mingw-w64-libraries/pseh/*", "mingw-w64-libraries/winstorecompat/*",
          "mingw-w64-libraries/winpthreads/tests_pthread/*", "mingw-w64-crt/profile/*", "build-aux/*",
          "*configure*", "*.m4", "*/Makefile.in"]),
]
GCC = """GCC's run-time libraries (libgcc, libstdc++): functions of the C++ language

Copyright Free Software Foundation, Inc. They are linked under the GCC Runtime Library Exception, version 3.1
(https://www.gnu.org/licenses/gcc-exception-3.1.html), which sets no terms for a program that a compiler of GCC made.
"""

# The beginning of a library's file name, and the project that it belongs to.
DEBIAN = [
    ("libwx_", "wxWidgets"),
    ("libsqlite3.", "SQLite"),
    ("libicu", "ICU"),
    ("libgtk-3.", "GTK"),
    ("libgdk-3.", "GTK"),
    ("libgdk_pixbuf", "GdkPixbuf"),
    ("libpango", "Pango"),
    ("libatk-", "ATK"),
    ("libcairo", "cairo"),
    ("libgobject-", "GLib"),
    ("libglib-", "GLib"),
    ("libgio-", "GLib"),
    ("libstdc++.", "GCC's run-time libraries"),
    ("libgcc_s.", "GCC's run-time libraries"),
    ("libm.", "GNU C Library"),
    ("libc.", "GNU C Library"),
]


def read(path):
    try:
        return path.read_text(encoding="utf-8")
    except OSError as error:
        sys.exit(f"notices.py: the licence text {path} cannot be read: {error.strerror}")


def field(paragraph, name):
    found = re.search(rf"^{name}:((?:.*\n?)(?:[ \t].*\n?)*)", paragraph, re.M)
    return found.group(1).strip() if found else ""


def used_paragraphs(text, main_licence, unused):
    """What a copyright file of Debian says about the files that are linked, and the licences that it names there."""
    head, *rest = re.split(r"\n\s*\n(?=(?:Files|License):)", text.strip())
    files = [paragraph for paragraph in rest if paragraph.startswith("Files:")]
    if not files or not files[0].startswith("Files: *"):
        return text  # not in that format: all of it
    kept = []
    for paragraph in files:
        licence = field(paragraph, "License").split("\n")[0]
        patterns = field(paragraph, "Files").split()
        is_linked = any(not any(fnmatch.fnmatchcase(pattern, rule) for rule in unused) for pattern in patterns)
        if is_linked and (licence != main_licence or patterns == ["*"]):
            kept.append(paragraph)
    named = " ".join(field(paragraph, "License").split("\n")[0] for paragraph in kept)
    licences = [paragraph for paragraph in rest if paragraph.startswith("License:")
                and field(paragraph, "License").split("\n")[0] in named.split()]
    return "\n\n".join(kept + licences)


def jpeg_text(toolkit):
    """The licence of libjpeg-turbo, and of its README the part about the licence that the former asks for."""
    folder = pathlib.Path(toolkit) / "share/doc/libjpeg-turbo"
    legal = re.search(r"^LEGAL ISSUES\n=+\n.*?(?=^REFERENCES\n=)", read(folder / "README.ijg"), re.M | re.S)
    if not legal:
        sys.exit("notices.py: README.ijg has no part LEGAL ISSUES")
    return ("This software is based in part on the work of the Independent JPEG Group.\n\n"
            + read(folder / "LICENSE.md") + "\n\nFrom README.ijg:\n\n" + legal.group(0))


def version(package):
    return subprocess.run(["dpkg-query", "-W", "-f", "${source:Upstream-Version}", package], check=True,
                          capture_output=True, text=True).stdout


def windows(toolkit):
    sections = [INTRODUCTION.format("It contains") + "\n\n"
                + "".join(f"  {part.name}\n" for part in WINDOWS) + "  GCC's run-time libraries\n"]
    for part in WINDOWS:
        text = jpeg_text(toolkit) if part.name == "libjpeg-turbo" else part.text()
        sections.append(f"{part.name} {version(part.package)}: {part.purpose}\n\n{text.strip()}\n")
    return sections + [GCC]


def package_of(library):
    """The package of this machine's own architecture that has a library."""
    own = subprocess.run(["dpkg", "--print-architecture"], check=True, capture_output=True, text=True).stdout.strip()
    found = subprocess.run(["dpkg-query", "-S", f"*/{library}"], check=True, capture_output=True, text=True).stdout
    packages = re.findall(rf"^([^:,\s]+):{own}: ", found, re.M)
    if not packages:
        sys.exit(f"notices.py: no package of {own} has {library}")
    return packages[0]


def debian(program):
    listing = subprocess.run(["objdump", "-p", program], check=True, capture_output=True, text=True).stdout
    needed = re.findall(r"^\s*NEEDED\s+(\S+)$", listing, re.M)
    files = {}
    for library in needed:
        owner = next((name for start, name in DEBIAN if library.startswith(start)), None)
        if owner is None:
            sys.exit(f"notices.py: the program loads {library}; packaging/notices.py does not say whose it is")
        files.setdefault(owner, []).append(library)
    lines = [INTRODUCTION.format("It loads libraries of the system, which are") + "\n"]
    for owner, libraries in files.items():
        lines.append(f"{owner}: {', '.join(libraries)}\n  licence: {DOC / package_of(libraries[0]) / 'copyright'}")
    return ["\n".join(lines) + "\n"]


def main():
    if len(sys.argv) != 4 or sys.argv[1] not in ("windows", "debian"):
        sys.exit(textwrap.dedent(__doc__))
    sections = (windows if sys.argv[1] == "windows" else debian)(sys.argv[2])
    text = ("\n" + "=" * 100 + "\n\n").join(sections)
    # Older versions of the Windows text editor show a file without CR as one line.
    newline = "\r\n" if sys.argv[1] == "windows" else "\n"
    pathlib.Path(sys.argv[3]).write_text(text, encoding="utf-8", newline=newline)


main()
