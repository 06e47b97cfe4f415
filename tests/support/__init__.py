"""What only tests use, and the classes of scripts/ that tests use too."""

import pathlib
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[2] / "scripts"))

# pylint: disable=wrong-import-position
from build_folder import BuildFolder  # noqa: E402
from console_site import PROJECT, ConsoleSite, SiteError  # noqa: E402
from make_firmware import make_image  # noqa: E402

__all__ = ["PROJECT", "BuildFolder", "ConsoleSite", "SiteError", "make_image"]
