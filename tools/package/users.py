"""Ordinary users of the bare system."""

import os
import pwd


def become(name):
    """The rest of this process is the user's."""
    user = pwd.getpwnam(name)
    os.initgroups(name, user.pw_gid)
    os.setgid(user.pw_gid)
    os.setuid(user.pw_uid)
    os.environ.update(HOME=user.pw_dir, USER=name)
