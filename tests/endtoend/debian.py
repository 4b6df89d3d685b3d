"""A Debian package, and the places that it can be laid into: a folder, or a Debian of its own."""

import os
import re
import shlex
import shutil
import subprocess
from pathlib import Path

from scenario import Skipped

# Runs the shell command that follows, with mounts of its own.
ALONE = ("unshare", "--mount", "--propagation", "private", "sh", "-ec")


def output_of(*command, **options):
    """What a command prints; fails, and shows what it complained of, when the command does."""
    result = subprocess.run(
        [str(word) for word in command], capture_output=True, text=True, check=False,
        env=os.environ | {"LC_ALL": "C.UTF-8", "DEBIAN_FRONTEND": "noninteractive"}, **options)
    assert result.returncode == 0, f"{command} failed:\n{result.stdout}{result.stderr}"
    return result.stdout


class DebianPackage:
    """A package file."""

    def __init__(self, path):
        self.path = Path(path).resolve()

    def contents(self):
        """Path -> mode and owner of everything in it."""
        entries = {}
        for line in output_of("dpkg-deb", "--contents", self.path).splitlines():
            mode, owner, _, _, _, path = line.split(maxsplit=5)
            entries[path.removeprefix("./").rstrip("/")] = f"{mode} {owner}"
        return entries

    def field(self, name):
        """A field of its description; empty where it has none."""
        return output_of("dpkg-deb", "--field", self.path, name).strip()

    def packages(self, name):
        """The names of the packages in a field such as Depends."""
        return {entry.split()[0] for entry in self.field(name).split(",") if entry.strip()}

    def unpack(self, folder):
        """Lays its files into a folder, without installing it."""
        output_of("dpkg-deb", "--extract", self.path, folder)

    def newly_installed(self):
        """What apt would install for it on this machine, itself included."""
        plan = output_of("apt-get", "--simulate", "--no-install-recommends", "--reinstall", "install",
                         self.path)
        return set(re.findall(r"^Inst (\S+)", plan, re.MULTILINE))


def needed_libraries(program):
    """The libraries that a program names to the loader, and the run paths that it would look in."""
    dynamic = output_of("readelf", "--dynamic", program)
    return (set(re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic)),
            re.findall(r"\((?:RPATH|RUNPATH)\).*\[(.*)\]", dynamic))


def package_of_library(name):
    """The package that holds a library for this machine's architecture."""
    architecture = output_of("dpkg", "--print-architecture").strip()
    owners = output_of("dpkg-query", "--search", f"*/{name}")
    found = set(re.findall(rf"^(\S+?)(?::{architecture})?: (?:/usr)?/lib/[^/]*/{re.escape(name)}$",
                           owners, re.MULTILINE))
    assert len(found) == 1, f"{name} is in {found}, or elsewhere:\n{owners}"
    return found.pop()


class CleanRoot:
    """The smallest Debian, fetched anew: nothing is there that the package does not ask for. What is mounted
    in it is mounted for the one command only."""

    def __init__(self, folder):
        self.folder = Path(folder)
        if os.geteuid() != 0 or not shutil.which("debootstrap"):
            raise Skipped("a clean root needs root and debootstrap")
        if subprocess.run([*ALONE, "mount -t tmpfs none /tmp"], capture_output=True,
                          check=False).returncode != 0:
            raise Skipped("a clean root needs a machine where root may mount")
        release = re.search(r"^VERSION_CODENAME=(\S+)", Path("/etc/os-release").read_text(),
                            re.MULTILINE)
        output_of(*ALONE, shlex.join(["debootstrap", "--variant=minbase", release.group(1),
                                      str(self.folder)]))

    def install(self, package):
        """Installs a package and what it depends on, and nothing that it merely recommends."""
        shutil.copy(package.path, self.folder / "root")
        self.run("apt-get", "update")
        self.run("apt-get", "install", "--yes", "--no-install-recommends",
                 f"/root/{package.path.name}")

    def run(self, *command):
        """Runs a command in the root and returns what it prints."""
        return output_of(*ALONE, self._inside(*command), stdin=subprocess.DEVNULL)

    def starter(self, path, program, *shared):
        """Writes a program that starts `program` in the root, where the folders `shared` are the same as
        outside. It becomes the program that it starts."""
        steps = []
        for folder in shared:
            target = f"{self.folder}{folder}"
            steps += [shlex.join(["mkdir", "-p", target]),
                      shlex.join(["mount", "--bind", str(folder), target])]
        steps.append(self._inside(program))
        path.write_text(f"#!/bin/sh\nexec {shlex.join([*ALONE, ' && '.join(steps)])}\n")
        path.chmod(0o755)
        return path

    def _inside(self, *command):
        """The shell command that runs a command in the root."""
        return " && ".join([
            shlex.join(["mount", "-t", "proc", "proc", f"{self.folder}/proc"]),
            "exec " + shlex.join(["chroot", str(self.folder), *command])])
