"""What scripts/sign-release and scripts/make-feed share. What is wrong ends them with a sentence."""
import argparse
import base64
import json
import os
import subprocess
import sys
import tempfile

RELEASE = "application/vnd.corvane.release+json"
FEED = "application/vnd.corvane.feed+json"


class Arguments(argparse.ArgumentParser):
    def error(self, message):
        sys.exit(f"{self.prog}: {message}.")


def read_json(path):
    try:
        document = json.loads(path.read_bytes())
    except OSError as error:
        sys.exit(f"{path} cannot be read: {error.strerror}.")
    except ValueError:
        document = None
    if not isinstance(document, dict):
        sys.exit(f"{path} is not a document in JSON.")
    return document


def payload(envelope, kind):
    """What is in it, whoever has signed it."""
    try:
        if envelope["payloadType"] == kind:
            return json.loads(base64.b64decode(envelope["payload"], validate=True))
    except (KeyError, TypeError, ValueError):
        pass
    sys.exit(f"This is no envelope with a document of the type {kind}.")


def sign(kind, document, key):
    """An envelope with the document, signed with the key in a file. openssl asks for its passphrase
    on the terminal, so that no other process comes to know it."""
    content = json.dumps(document, indent=4).encode()
    try:
        if key.stat().st_mode & 0o077:
            sys.exit(f"Others may use the key {key}: chmod 600 it first.")
    except OSError as error:
        sys.exit(f"The key {key} cannot be read: {error.strerror}.")
    # openssl wants to know the length beforehand, and its input may have to be the passphrase.
    with tempfile.NamedTemporaryFile() as message:
        message.write(b"DSSEv1 %d %s %d %s" % (len(kind), kind.encode(), len(content), content))
        message.flush()
        answer = subprocess.run(
            ["openssl", "pkeyutl", "-sign", "-rawin", "-inkey", key, "-in", message.name],
            capture_output=True)
    if answer.returncode != 0 or len(answer.stdout) != 64:
        sys.exit(f"openssl cannot sign with {key}: it is no Ed25519 key, or the passphrase is wrong.")
    return {
        "payloadType": kind,
        "payload": base64.b64encode(content).decode(),
        "signatures": [{"sig": base64.b64encode(answer.stdout).decode()}],
    }


def write_whole(path, document, check=lambda file: None):
    """Once the check has not ended the script."""
    fresh = path.with_name(f".{path.name}.new")
    try:
        with fresh.open("w") as file:
            json.dump(document, file, indent=4)
            file.write("\n")
            file.flush()
            os.fsync(file.fileno())
        check(fresh)
        fresh.chmod(0o644)
        fresh.replace(path)
    except OSError as error:
        sys.exit(f"{path} cannot be written: {error.strerror}.")
    finally:
        fresh.unlink(missing_ok=True)
