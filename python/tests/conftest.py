"""What the tests share: where the repository and the wheels are."""
import os
from pathlib import Path

import pytest
from hypothesis import settings

# A machine that others use may stall at any example; the whole run has its limit in ctest.
settings.register_profile("zenithor", deadline=None, max_examples=60, database=None)
settings.load_profile("zenithor")


@pytest.fixture(scope="session")
def repository():
    return Path(os.environ["ZENITHOR_REPOSITORY"])


@pytest.fixture(scope="session")
def wheels():
    return Path(os.environ["ZENITHOR_WHEELS"])


@pytest.fixture(scope="session")
def out():
    return Path(os.environ["ZENITHOR_OUT"])
