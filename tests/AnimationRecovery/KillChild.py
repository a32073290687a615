# The process the recovery kill test kills. In mayasim-batch, with the
# plug-in loaded, it builds a scene, turns recovery on and then, one MEL
# statement at a time (so that each burst's key-edit messages arrive), edits
# curves and ticks idle until the burst's curve file is written. Before each
# save it writes the scene's curves as it expects them back (expect/<n>); once
# the file is there it logs "saved <n>". Both are fsync'd, so after a kill the
# test knows the last completed save, and the one that may have been under way.
#
# KILL_DIR: its folder. KILL_KIND: "identity" (the scene file has its identity
# node), "noidentity" (recovery starts on a scene opened from a file without
# one) or "reference" (a reference is created, reloaded and removed between
# edits). KILL_SEED seeds the edits. With KILL_MODE=restore it only writes the
# curves of the open scene to "restored".
import os
import random

import maya.cmds as cmds

DIR = os.environ['KILL_DIR']
KIND = os.environ.get('KILL_KIND', 'identity')
SCENE = os.path.join(DIR, 'shot.ma')
PROP = os.path.join(DIR, 'prop.ma')
RECOVERY = os.path.expanduser('~/Documents/maya/scripts/Orvane/AnimationRecovery')
CHANNELS = ['a.tx', 'a.ty', 'a.rz', 'a.sx', 'b.tx', 'b.ry', 'b.sy', 'b.v']
TANGENTS = ['linear', 'flat', 'spline', 'clamped', 'step', 'plateau', 'auto']
INFINITIES = [0, 1, 3, 4, 5]

rng = random.Random(int(os.environ.get('KILL_SEED', '1')))
saves = 0
last_state = None


def write_durably(path, text):
    temporary = path + '.tmp'
    with open(temporary, 'w') as out:
        out.write(text)
        out.flush()
        os.fsync(out.fileno())
    os.replace(temporary, path)
    folder = os.open(os.path.dirname(path), os.O_RDONLY)
    os.fsync(folder)
    os.close(folder)


def log(line):
    with open(os.path.join(DIR, 'log'), 'a') as out:
        out.write(line + '\n')
        out.flush()
        os.fsync(out.fileno())


def number(x):
    # Nine digits, and no sign or rounding noise on a zero.
    return '%.9g' % (round(x, 9) + 0.0)


def attribute(curve, name):
    try:
        value = cmds.getAttr(curve + '.' + name)
    except RuntimeError:
        return []
    return value if isinstance(value, list) else [value]


def dump():
    """Every fact of the scene's own curves that a restore brings back."""
    lines = []
    for curve in sorted(cmds.ls(type='animCurve')):
        if cmds.referenceQuery(curve, inr=True):
            continue
        drives = [p for p in CHANNELS if (cmds.keyframe(p, q=True, name=True) or [None])[0] == curve]
        lines.append('%s -> %s weighted %s infinity %s/%s' % (
            curve, ' '.join(drives), attribute(curve, 'wgt'), attribute(curve, 'pre'), attribute(curve, 'pst')))
        times_values = attribute(curve, 'ktv')
        fields = [attribute(curve, f) for f in ('kit', 'kot', 'kix', 'kiy', 'kox', 'koy', 'ktl', 'kwl')]
        for i in range(len(times_values) // 2):
            lines.append('  %s = %s | %s' % (number(times_values[2 * i]), number(times_values[2 * i + 1]), ' '.join(
                number(f[i]) if i < len(f) else '?' for f in fields)))
    return '\n'.join(lines) + '\n'


def curve_files():
    return sum(1 for _, _, names in os.walk(RECOVERY) for name in names if name.endswith('_a'))


def frames():
    first = rng.randint(0, 60) / 2.0
    return '%g:%g' % (first, first + rng.randint(0, 20) / 2.0)


def one_edit():
    plug = rng.choice(CHANNELS)
    curve = (cmds.keyframe(plug, q=True, name=True) or [None])[0]
    kind = rng.randint(0, 9)
    if kind <= 2 or curve is None:
        cmds.setKeyframe(plug, t=rng.randint(0, 80) / 2.0, v=rng.randint(-40, 40) / 4.0)
    elif kind == 3:
        cmds.keyframe(plug, e=True, r=True, t=frames(), vc=rng.randint(-20, 20) / 4.0)
    elif kind == 4:
        cmds.keyframe(plug, e=True, r=True, t=frames(), tc=rng.choice([-2, -1, 1, 2]))
    elif kind == 5:
        cmds.keyTangent(plug, e=True, t=frames(), itt=rng.choice(TANGENTS[:4]), ott=rng.choice(TANGENTS))
    elif kind == 6:
        # A broken tangent: unlocked, then each side its own angle and weight.
        span = frames()
        cmds.keyTangent(plug, e=True, t=span, lock=False)
        cmds.keyTangent(plug, e=True, t=span, ia=rng.randint(-80, 80), oa=rng.randint(-80, 80),
                        iw=rng.randint(1, 8) / 2.0, ow=rng.randint(1, 8) / 2.0)
    elif kind == 7:
        cmds.setAttr(curve + '.wgt', rng.randint(0, 1))
        keys = len(attribute(curve, 'ktv')) // 2
        if keys:
            cmds.setAttr('%s.kwl[%d]' % (curve, rng.randint(0, keys - 1)), rng.randint(0, 1))
    elif kind == 8:
        cmds.setAttr(curve + rng.choice(['.pre', '.pst']), rng.choice(INFINITIES))
    else:
        cmds.cutKey(plug, t=frames(), cl=True)


def reference_event():
    # Recording pauses while a reference comes, reloads or goes, and resumes after.
    loaded = cmds.file(q=True, r=True) or []
    if not loaded:
        cmds.file(PROP, r=True, ns='prop')
    elif rng.randint(0, 1):
        cmds.file(lr='propRN')
    else:
        cmds.file(PROP, rr=True)


def edit():
    """A burst of one to four edits, as one MEL statement."""
    if KIND == 'reference' and rng.randint(0, 3) == 0:
        reference_event()
    for _ in range(rng.randint(1, 4)):
        try:
            one_edit()
        except RuntimeError:
            pass  # an edit that doesn't apply (no key in the range) changes nothing


def save():
    """Ticks idle until the burst's file is written, and logs the save."""
    global saves, last_state
    state = dump()
    if state == last_state:
        return
    saves += 1
    write_durably(os.path.join(DIR, 'expect', str(saves)), state)
    written = curve_files()
    for _ in range(1000):
        cmds.mayasimHost(idle=1)
        if curve_files() > written:
            break
    else:
        log('no file for save %d' % saves)
    log('saved %d' % saves)
    last_state = state


def build():
    cmds.file(f=True, new=True)
    if KIND == 'reference':
        cmds.createNode('transform', n='prop')
        cmds.setKeyframe('prop.tx', t=1, v=1)
        cmds.setKeyframe('prop.tx', t=9, v=4)
        cmds.file(rename=PROP)
        cmds.file(save=True, type='mayaAscii')
        cmds.file(f=True, new=True)
    cmds.createNode('transform', n='a')
    cmds.createNode('transform', n='b')
    for plug in CHANNELS[:5]:
        for frame in range(0, 40, 6):
            cmds.setKeyframe(plug, t=frame, v=rng.randint(-20, 20) / 4.0)
    if KIND != 'noidentity':
        cmds.OVAnimationRecovery(enable=True)
    cmds.file(rename=SCENE)
    cmds.file(save=True, type='mayaAscii')
    # Recording (re)starts on the opened scene.
    cmds.file(SCENE, o=True, f=True)
    cmds.OVAnimationRecovery(enable=True)
    os.mkdir(os.path.join(DIR, 'expect'))
    global last_state
    last_state = dump()
    write_durably(os.path.join(DIR, 'expect', '0'), last_state)
    log('saved 0')


if os.environ.get('KILL_MODE') == 'restore':
    write_durably(os.path.join(DIR, 'restored'), dump())
else:
    build()
