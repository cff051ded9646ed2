"""The package as it is installed: wheels, prototypes, codes, documentation, types."""
import ctypes
import doctest
import email
import hashlib
import base64
import importlib
import pkgutil
import re
import subprocess
import sys
import zipfile
from pathlib import Path

import pytest

import zenithor
from zenithor._library import FIRST_DAY, LAST_DAY, MAJOR_VERSION, PROTOTYPES

LIBRARY_OF_TAG = {
    "manylinux_2_36_x86_64": "libzenithor_values.so",
    "manylinux_2_36_aarch64": "libzenithor_values.so",
    "win32": "zenithor_values.dll",
    "win_amd64": "zenithor_values.dll",
}
PLACE_OF_TAG = {
    "manylinux_2_36_x86_64": "linux",
    "manylinux_2_36_aarch64": "linux-arm64",
    "win32": "win32",
    "win_amd64": "win64",
}


@pytest.fixture(scope="session")
def header(repository):
    text = (repository / "include" / "zenithor" / "values.h").read_text(encoding="utf-8")
    return re.sub(r"/\*.*?\*/", "", text, flags=re.DOTALL)


def test_the_package_is_the_installed_one(repository):
    assert repository / "python" not in Path(zenithor.__file__).parents
    assert Path(sys.prefix) in Path(zenithor.__file__).parents


@pytest.mark.parametrize("tag", LIBRARY_OF_TAG)
def test_wheel(tag, wheels, out, repository):
    path = wheels / f"zenithor-{zenithor.__version__}-py3-none-{tag}.whl"
    library = out / PLACE_OF_TAG[tag] / LIBRARY_OF_TAG[tag]
    if not library.exists():
        assert not path.exists()
        pytest.skip(f"no {library.relative_to(out)}")
    with zipfile.ZipFile(path) as wheel:
        names = wheel.namelist()
        info = f"zenithor-{zenithor.__version__}.dist-info/"
        modules = {source.relative_to(repository / "python" / "src").as_posix(): source.read_bytes()
                   for source in (repository / "python" / "src" / "zenithor").rglob("*.py")}
        expected = set(modules) | {"zenithor/py.typed", "zenithor/" + LIBRARY_OF_TAG[tag]}
        expected |= {info + name for name in ("METADATA", "WHEEL", "LICENSE", "RECORD", "entry_points.txt")}
        assert sorted(names) == sorted(expected)
        for name, content in modules.items():
            assert wheel.read(name) == content
        assert wheel.read("zenithor/" + library.name) == library.read_bytes()
        described = email.message_from_bytes(wheel.read(info + "WHEEL"))
        assert described.get_all("Tag") == [f"py3-none-{tag}"]
        assert described["Root-Is-Purelib"] == "false"
        metadata = email.message_from_bytes(wheel.read(info + "METADATA"))
        assert (metadata["Name"], metadata["Version"]) == ("zenithor", zenithor.__version__)
        assert metadata["Requires-Python"] == ">=3.9"
        needed = metadata.get_all("Requires-Dist")
        assert [name for name in needed if "extra ==" not in name] == ["numpy>=1.19"]
        assert metadata.get_all("Provides-Extra") == ["frames", "plot", "dask"]
        records = [line.split(",") for line in wheel.read(info + "RECORD").decode().splitlines()]
        assert [record[0] for record in records] == names
        for name, digest, size in records[:-1]:
            data = wheel.read(name)
            encoded = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).decode().rstrip("=")
            assert (digest, size) == (f"sha256={encoded}", str(len(data)))
        assert records[-1] == [info + "RECORD", "", ""]


def test_linux_library_needs_no_newer_c_library_than_the_tag_says(wheels, tmp_path):
    wheel = next(wheels.glob("*manylinux_2_36_x86_64.whl"), None)
    if wheel is None:
        pytest.skip("another architecture")
    library = zipfile.ZipFile(wheel).extract("zenithor/libzenithor_values.so", tmp_path)
    listing = subprocess.run(["readelf", "--wide", "--version-info", library], check=True, capture_output=True,
                             text=True).stdout
    versions = {tuple(map(int, found.split("."))) for found in re.findall(r"GLIBC_([0-9.]+)", listing)}
    assert versions and max(versions) <= (2, 36)
    needed = subprocess.run(["readelf", "--wide", "--dynamic", library], check=True, capture_output=True,
                            text=True).stdout
    assert set(re.findall(r"\(NEEDED\).*\[(.*)\]", needed)) <= {"libm.so.6", "libc.so.6"}


def test_wheels_are_the_same_bytes_when_packed_again(repository, wheels, out, tmp_path):
    subprocess.run([sys.executable, repository / "python" / "wheel_builder.py", "--libraries", out, "--into",
                    tmp_path], check=True, capture_output=True)
    again = {path.name: path.read_bytes() for path in tmp_path.iterdir()}
    assert again == {path.name: path.read_bytes() for path in wheels.iterdir()}


def test_a_library_of_another_machine_is_not_packed(repository, out, tmp_path):
    fake = tmp_path / "out" / "win32"
    fake.mkdir(parents=True)
    (fake / "zenithor_values.dll").write_bytes((out / "linux" / "libzenithor_values.so").read_bytes())
    run = subprocess.run([sys.executable, repository / "python" / "wheel_builder.py", "--libraries",
                          tmp_path / "out", "--into", tmp_path / "dist"], capture_output=True, text=True)
    assert run.returncode == 1 and "not a library for win32" in run.stderr
    assert not (tmp_path / "dist").exists()


def test_pip_builds_the_wheel_of_this_machine(repository, tmp_path):
    run = subprocess.run([sys.executable, "-c", "import sys, wheel_builder; print(wheel_builder.build_wheel(sys.argv[1]))",
                          tmp_path], cwd=repository / "python", capture_output=True, text=True)
    assert run.returncode == 0, run.stderr
    assert (tmp_path / run.stdout.strip()).is_file()


def test_version_is_that_of_the_library_and_the_project(header, repository):
    assert re.search(r'VALUES_VERSION_STRING "(.*)"', header).group(1) == zenithor.__version__
    assert zenithor.__version__.startswith(f"{MAJOR_VERSION}.")
    project = (repository / "python" / "pyproject.toml").read_text(encoding="utf-8")
    assert f'\nversion = "{zenithor.__version__}"\n' in project
    assert re.fullmatch("[0-9a-f]{64}", zenithor.data_fingerprint)


def test_prototypes_are_those_of_the_header(header):
    def letter(parameter):
        if "*" in parameter:
            return "p"
        return "d" if parameter.startswith("double") else "i" if parameter.startswith("int32_t") else "?"

    found = {}
    for result, name, parameters in re.findall(
        r"^(const char\*|double|int32_t) ZENITHOR_VALUES_CALL\s+Zenithor(\w+)\(([^)]*)\);", header, re.MULTILINE
    ):
        words = [] if parameters == "void" else [" ".join(word.split()) for word in parameters.split(",")]
        found[name] = ("s" if "char" in result else letter(result), "".join(map(letter, words)))
    assert len(found) == 34
    assert found == PROTOTYPES


def test_codes_are_those_of_the_header(header):
    numbers = dict(re.findall(r"ZENITHOR_(\w+)\s*=\s*(-?\d+)", header))
    for prefix, codes, others in (("BODY_", zenithor.Body, {"COUNT"}), ("FIELD_", zenithor.Field, set()),
                                  ("KIND_", zenithor.EventKind, {"COUNT"}),
                                  ("DAILY_", zenithor.RiseStatus, {"RISE", "TRANSIT", "SET"})):
        expected = {name[len(prefix):]: int(number) for name, number in numbers.items() if name.startswith(prefix)}
        assert {name: code.value for name, code in codes.__members__.items()} == {
            name: number for name, number in expected.items() if name not in others}
    sets = dict(re.findall(r"ZENITHOR_KINDS_(\w+) (0x\w+)", header))
    for name, bits in sets.items():
        assert zenithor._codes.KIND_SETS[name.lower()] == int(bits, 16)
    days = dict(re.findall(r"ZENITHOR_(FIRST|LAST)_DAY ([0-9.]+)", header))
    assert (FIRST_DAY, LAST_DAY) == (float(days["FIRST"]), float(days["LAST"]))


def test_a_missing_library_is_told(tmp_path):
    package = Path(zenithor.__file__).parent
    copy = tmp_path / "zenithor"
    copy.mkdir()
    for source in package.glob("*.py"):
        (copy / source.name).write_bytes(source.read_bytes())
    run = subprocess.run([sys.executable, "-c", "import zenithor"], cwd=tmp_path, capture_output=True, text=True)
    assert "ImportError" in run.stderr and "came without its library" in run.stderr


def modules():
    for module in pkgutil.iter_modules(zenithor.__path__, "zenithor."):
        if "libzenithor" not in module.name:
            yield module.name


@pytest.mark.parametrize("name", ["zenithor", *modules()])
def test_examples_in_the_documentation(name):
    for needed in {"zenithor.plot": ["matplotlib", "pandas"], "zenithor.dask": ["dask", "distributed", "pandas"]}.get(name, []):
        pytest.importorskip(needed)
    failed, _ = doctest.testmod(importlib.import_module(name))
    assert failed == 0


def test_public_functions_have_examples_errors_and_units():
    public = [getattr(zenithor, name) for name in zenithor.__all__]
    functions = [value for value in public if callable(value) and not isinstance(value, type)]
    assert len(functions) >= 10
    for function in functions:
        assert ">>>" in function.__doc__, function.__name__


@pytest.fixture(scope="session")
def mypy_cache(tmp_path_factory):
    pytest.importorskip("mypy")
    return tmp_path_factory.mktemp("mypy")


def test_types_hold_strictly(repository, mypy_cache):
    run = subprocess.run([sys.executable, "-m", "mypy", "--cache-dir", mypy_cache, "--config-file", "pyproject.toml"],
                         cwd=repository / "python", capture_output=True, text=True)
    assert run.returncode == 0, run.stdout + run.stderr


def test_types_as_a_user_meets_them(repository, tmp_path, mypy_cache):
    script = tmp_path / "user.py"
    script.write_text("""
import numpy as np
import zenithor
from zenithor import Body, Field
reveal_type(zenithor.position("mars", 2451545.0))
reveal_type(zenithor.position([Body.MARS], [2451545.0], Field.DECLINATION))
reveal_type(zenithor.stations("mars", "2000", "2001"))
zenithor.position(1.5, "2000")
""")
    run = subprocess.run([sys.executable, "-m", "mypy", "--cache-dir", mypy_cache, "--config-file",
                          repository / "python" / "pyproject.toml", script], cwd=repository / "python",
                         env={"MYPYPATH": "src", "PATH": "/usr/bin:/bin"}, capture_output=True, text=True)
    revealed = re.findall(r'Revealed type is "(.*)"', run.stdout)
    assert len(revealed) == 3, run.stdout
    assert revealed[0] == "builtins.float"
    assert revealed[1].startswith("numpy.ndarray[")
    assert revealed[2] == "zenithor._searches.Stations"
    assert "No overload variant" in run.stdout


@pytest.mark.parametrize("date", ["1992-12-20", "jd 2448908.5", "2026-11-21T06:30:00", "-4000-05-06 07:08:09",
                                  "9999-12-31T23:59:59.9999"])
def test_today_prints_what_the_almanac_prints(date, repository):
    library = repository / "out" / "linux" / "libzenithor.so"
    almanac = subprocess.run([repository / "tools" / "run" / "run_almanac.sh", "--on", "linux", "--library", library,
                              "today", "--time", "tt", "--date", date], check=True, capture_output=True, text=True)
    package = subprocess.run([sys.executable, "-m", "zenithor", "today", "--date", date], check=True,
                             capture_output=True, text=True)
    assert package.stdout == almanac.stdout


@pytest.mark.parametrize("date", ["2026-02-30", "1582-10-10", "tomorrow", "20000-01-01", "2026-01-01T24:00"])
def test_today_refuses_what_is_no_date(date):
    run = subprocess.run([sys.executable, "-m", "zenithor", "--date", date], capture_output=True, text=True)
    assert run.returncode == 2 and date in run.stderr


def test_today_without_a_date():
    run = subprocess.run([sys.executable, "-m", "zenithor"], check=True, capture_output=True, text=True)
    assert run.stdout.startswith("Places at 2") and "Pluto" in run.stdout


def test_prototypes_find_every_function():
    assert {type(getattr(zenithor._library.LIBRARY, name)) for name in PROTOTYPES}.isdisjoint({type(None)})
    assert zenithor._library.LIBRARY.Value.restype is ctypes.c_double
