"""The whole description, and the files that are made of it."""
import json
import re

import facts
import headers
import javascript
import python


def description(root):
    libraries = headers.libraries(root)
    facts.add_all(libraries)
    version = re.search(r"\d+\.\d+\.\d+", libraries[1]["constants"][0]["value"])[0]  # of the release
    return {"about": "The interfaces of OrvelSDK, made by scripts/describe from the headers.",
            "format": 1, "version": version, "targets": headers.TARGETS, "libraries": libraries}


def files(root):
    """Every file that is made here, and its text."""
    found = description(root)
    return {"bindings/orvel_api.json": json.dumps(found, indent=1, ensure_ascii=False) + "\n",
            "bindings/python/orvelsdk/_api.py": python.low_level(found),
            "bindings/python/orvelsdk/_api.pyi": python.stub(found),
            "bindings/js/src/api.ts": javascript.low_level(found)}
