#!/usr/bin/env python3
"""Writes the papers of the SDK into its folder, from what lies there and packaging/third_party.json.

    sdk_papers.py FOLDER VERSION

THIRD-PARTY.txt names what others wrote, with their licences as this machine's Debian packages have them;
zenithor.spdx.json is the list of materials (SPDX 2.3) with a SHA-1 and a SHA-256 of every file; SHA256SUMS
has those of all files, itself left out. The same bytes from the same files on the same machine.
"""
import hashlib
import json
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
DATE = "2026-01-01T00:00:00Z"  # that of the archive's files
NOTHING = "NOASSERTION"


def version_of(program):
    if "npm" in program:
        lock = json.loads((ROOT / "web/page/package-lock.json").read_text(encoding="utf-8"))
        return lock["packages"][f"node_modules/{program['npm']}"]["version"]
    package = program["package"]
    run = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], capture_output=True, text=True)
    if run.returncode != 0 or not run.stdout:
        sys.exit(f"sdk_papers.py: {package} is not installed, and its licence has to be told")
    return run.stdout


def licence_text(package):
    file = Path("/usr/share/doc") / package / "copyright"
    if not file.is_file():
        sys.exit(f"sdk_papers.py: {file} is missing")
    return file.read_text(encoding="utf-8").rstrip() + "\n"


def third_party(parties):
    rule = "=" * 78 + "\n"
    text = "What others wrote in this SDK\n\n"
    text += "Zenithor itself: see LICENSE. The numbers are published results:\n\n"
    for data in parties["data"]:
        text += f"  {data['name']} ({data['used']}): {data['source']}\n"
    text += "\nPrograms:\n\n"
    for program in parties["programs"]:
        text += f"  {program['name']} {version_of(program)} ({program['license']}): {program['used']}\n"
    for program in (one for one in parties["programs"] if "package" in one):
        text += f"\n{rule}{program['name']}\n{rule}\n{licence_text(program['package'])}"
    return text


def digest(file, algorithm):
    return hashlib.new(algorithm, file.read_bytes()).hexdigest()


def files_of(folder, without):
    return [file for file in sorted(folder.rglob("*")) if file.is_file() and file.name not in without]


def package(identity, name, version, licence, purpose="LIBRARY", **more):
    return {"SPDXID": f"SPDXRef-{identity}", "name": name, "versionInfo": version, "downloadLocation": NOTHING,
            "filesAnalyzed": False, "licenseConcluded": licence, "licenseDeclared": licence,
            "copyrightText": NOTHING, "primaryPackagePurpose": purpose, **more}


def materials(folder, version, parties):
    listed = []
    for number, file in enumerate(files_of(folder, {"SHA256SUMS", "zenithor.spdx.json"})):
        listed.append({"SPDXID": f"SPDXRef-File-{number}", "fileName": f"./{file.relative_to(folder).as_posix()}",
                       "checksums": [{"algorithm": "SHA1", "checksumValue": digest(file, "sha1")},
                                     {"algorithm": "SHA256", "checksumValue": digest(file, "sha256")}],
                       "licenseConcluded": NOTHING, "copyrightText": NOTHING})
    sums = sorted(file["checksums"][0]["checksumValue"] for file in listed)
    own = package("Zenithor", "zenithor", version, "MIT", "LIBRARY")
    own |= {"filesAnalyzed": True, "copyrightText": "Copyright 2026 the Zenithor authors",
            "packageVerificationCode": {
                "packageVerificationCodeValue": hashlib.sha1("".join(sums).encode()).hexdigest()}}
    packages = [own]
    relations = [{"spdxElementId": "SPDXRef-DOCUMENT", "relationshipType": "DESCRIBES",
                  "relatedSpdxElement": own["SPDXID"]}]
    for number, one in enumerate(parties["programs"]):
        packages.append(package(f"Program-{number}", one["name"], version_of(one), one["license"],
                                comment=one["used"]))
        relations.append({"spdxElementId": own["SPDXID"], "relationshipType": "CONTAINS",
                          "relatedSpdxElement": packages[-1]["SPDXID"]})
    for number, one in enumerate(parties["data"]):
        packages.append(package(f"Data-{number}", one["name"], "", NOTHING, "SOURCE", comment=one["source"]))
        del packages[-1]["versionInfo"]
        relations.append({"spdxElementId": own["SPDXID"], "relationshipType": "GENERATED_FROM",
                          "relatedSpdxElement": packages[-1]["SPDXID"]})
    for file in listed:
        relations.append({"spdxElementId": own["SPDXID"], "relationshipType": "CONTAINS",
                          "relatedSpdxElement": file["SPDXID"]})
    everything = hashlib.sha256("".join(file["checksums"][1]["checksumValue"] for file in listed).encode()).hexdigest()
    return {"spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
            "name": f"zenithor-sdk-{version}",
            "documentNamespace": f"urn:zenithor:sdk:{version}:{everything}",
            "creationInfo": {"created": DATE, "creators": ["Organization: the Zenithor authors",
                                                           "Tool: sdk_papers.py"]},
            "packages": packages, "files": listed, "relationships": relations}


def main():
    folder, version = Path(sys.argv[1]), sys.argv[2]
    parties = json.loads((ROOT / "packaging/third_party.json").read_text(encoding="utf-8"))
    # What is in one folder or file alone is left out with it.
    parties["programs"] = [one for one in parties["programs"] if (folder / one.get("where", ".")).exists()]
    (folder / "THIRD-PARTY.txt").write_text(third_party(parties), encoding="utf-8")
    (folder / "zenithor.spdx.json").write_text(
        json.dumps(materials(folder, version, parties), indent=1) + "\n", encoding="utf-8")
    sums = [f"{digest(file, 'sha256')}  {file.relative_to(folder).as_posix()}\n"
            for file in files_of(folder, {"SHA256SUMS"})]
    (folder / "SHA256SUMS").write_text("".join(sums), encoding="utf-8")


if __name__ == "__main__":
    main()
