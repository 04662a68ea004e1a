"""Reads what a linker and a loader see of a shared library: symbols, relocations, dynamic entries (ELF, 64 bits, x86-64)."""

import collections
import struct
import subprocess

Symbol = collections.namedtuple("Symbol", "name value size type binding visibility section")

SHT_SYMTAB, SHT_RELA, SHT_DYNAMIC, SHT_DYNSYM = 2, 4, 6, 11
DT_NEEDED, DT_SONAME = 1, 14
R_X86_64_64, R_X86_64_RELATIVE = 1, 8
STB_LOCAL, STV_DEFAULT, SHN_UNDEF = 0, 0, 0


class SharedLibrary:
    def __init__(self, path):
        with open(path, "rb") as file:
            self.bytes = file.read()
        if self.bytes[:6] != b"\x7fELF\x02\x01":
            raise ValueError(f"{path} is no little-endian 64-bit ELF file")
        (offset,) = struct.unpack_from("<Q", self.bytes, 0x28)
        size, count = struct.unpack_from("<HH", self.bytes, 0x3A)
        self.sections = [struct.unpack_from("<IIQQQQIIQQ", self.bytes, offset + i * size) for i in range(count)]
        self.dynamic_symbols = self._symbols(SHT_DYNSYM)
        self._by_address = {}
        for symbol in self._symbols(SHT_SYMTAB) + self.dynamic_symbols:
            if symbol.section != SHN_UNDEF:
                self._by_address.setdefault(symbol.value, symbol.name)
        self.relocations = dict(self._relocations())

    def _of_type(self, wanted):
        return [section for section in self.sections if section[1] == wanted]

    def _string(self, section_index, offset):
        begin = self.sections[section_index][4] + offset
        return self.bytes[begin : self.bytes.index(b"\0", begin)].decode()

    def _symbols(self, section_type):
        symbols = []
        for _, _, _, _, offset, size, link, _, _, entry_size in self._of_type(section_type):
            for at in range(offset, offset + size, entry_size):
                name, info, other, section, value, length = struct.unpack_from("<IBBHQQ", self.bytes, at)
                symbols.append(
                    Symbol(self._string(link, name), value, length, info & 15, info >> 4, other & 3, section)
                )
        return symbols

    def _relocations(self):
        """Address -> name of the symbol whose address the loader writes there."""
        for _, _, _, _, offset, size, _, _, _, entry_size in self._of_type(SHT_RELA):
            for at in range(offset, offset + size, entry_size):
                address, info, addend = struct.unpack_from("<QQq", self.bytes, at)
                kind = info & 0xFFFFFFFF
                if kind == R_X86_64_64:
                    yield address, self.dynamic_symbols[info >> 32].name
                elif kind == R_X86_64_RELATIVE:
                    yield address, self._by_address.get(addend, f"unnamed at {addend:#x}")

    def dynamic_strings(self, tag):
        return [
            self._string(section[6], value)
            for section in self._of_type(SHT_DYNAMIC)
            for entry_tag, value in struct.iter_unpack("<qQ", self.bytes[section[4] : section[4] + section[5]])
            if entry_tag == tag
        ]

    def exported(self):
        """The symbols that other libraries can bind to."""
        return [
            symbol
            for symbol in self.dynamic_symbols
            if symbol.section != SHN_UNDEF and symbol.binding != STB_LOCAL and symbol.visibility == STV_DEFAULT
        ]

    def table(self, name):
        """The words of an object of pointers: the names that stand there, 0 where no address is written."""
        symbol = next((s for s in self.exported() if s.name == name), None)
        if symbol is None:
            raise KeyError(f"'{name}' is not exported")
        return [self.relocations.get(at, 0) for at in range(symbol.value, symbol.value + symbol.size, 8)]


def demangle(names):
    output = subprocess.run(["c++filt"], input="\n".join(names), capture_output=True, text=True, check=True)
    return output.stdout.split("\n")[: len(names)]
