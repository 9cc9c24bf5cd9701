#!/usr/bin/env python3
"""Works out by other means what the Node Smoother makes of the curve in mNLT_SmootherTests.cpp.

Prints one row of nine 32-bit floats in hex for each node: position, incoming and outgoing control point.
"""
import math
import struct

NODES = [  # position, incoming and outgoing control point
    [(0, 20, 0), (-12, 23, 4), (10, 20, 0)],
    [(30, 20, 0), (20, 20, 0), (40, 22, 1)],
    [(60, 30, 10), (50, 26, 10), (70, 36, 10)],
    [(90, 28, 10), (80, 31, 10), (100, 24, 10)],
    [(120, 18, 10), (110, 20, 10), (130, 15, 12)],
    [(140, 25, 40), (142, 18, 26), (136, 33, 51)],
    [(100, 5, 70), (112, 1, 75), (90, 9, 68)],
    [(50, 30, 60), (66, 25, 67), (38, 36, 54)],
    [(-5, 28, 30), (4, 33, 41), (-13, 21, 20)],
]


def f32(value):
    return struct.unpack("<f", struct.pack("<f", value))[0]


def minus(p, q):
    return [f32(x - y) for x, y in zip(p, q)]


def dot(p, q):
    return p[0] * q[0] + p[1] * q[1] + p[2] * q[2]


def length(p):
    return math.sqrt(dot(p, p))


def cosine(p, q):
    return dot(p, q) / (length(p) * length(q))


def straight(a, b, c):
    return all(length(p) * length(q) != 0 and cosine(p, q) > 0.998 for p, q in ((a, b), (a, c), (b, c)))


def inside(p):
    return -220 < p[0] < 220 and 0 < p[1] < 150 and -220 < p[2] < 220


P, A, B = ([[f32(x) for x in node[k]] for node in NODES] for k in range(3))
N = len(NODES)
in_space, in_plan = [False] * N, [False] * N
for i in range(N):
    j = (i + 1) % N
    sides = minus(P[i], B[i]), minus(A[j], P[j]), minus(P[i], P[j])
    if straight(*sides):
        for k in (i, j):
            in_space[k] = in_plan[k] = True
    if straight(*[[x, 0.0, z] for x, _, z in sides]):
        in_plan[i] = in_plan[j] = True


def projections(i):
    u, w = minus(B[i - 1], P[i]), minus(A[(i + 1) % N], P[i])
    n = [f32(u[k - 2] * w[k - 1] - u[k - 1] * w[k - 2]) for k in range(3)]
    s = f32(dot(n, n))
    if in_plan[i] or s == 0:
        return None
    both = []
    for control in (A[i], B[i]):
        d = f32(dot(n, minus(control, P[i])))
        both.append([f32(x - y * d / s) for x, y in zip(control, n)])
    return both


new = [None] * N
refused = []
for sweep in range(1, 22):
    for i in range(0, N, 2 if sweep == 21 else 1):
        flat = projections(i)
        new[i] = (list(A[i]), list(B[i])) if flat is None else flat if sweep == 21 else tuple(
            [f32((x + y) / 2) for x, y in zip(p, q)] for p, q in zip(flat, (A[i], B[i])))
    for i in range(N):
        if inside(new[i][0]) and inside(new[i][1]):
            A[i], B[i] = list(new[i][0]), list(new[i][1])
        else:
            refused.append((sweep, i))

moved = list(P)
for i in range(N):
    p, q = i - 1, (i + 1) % N
    if in_plan[i] and (in_space[i] or not in_plan[p] or not in_plan[q]):
        continue
    e, f, g = minus(B[i], A[i]), minus(A[i], B[p]), minus(B[i], A[q])
    lf, lg = f32(length(f)), f32(length(g))
    sf = math.sqrt(1 - cosine(f, e) ** 2)
    sg = math.sqrt(1 - cosine(g, [-x for x in e]) ** 2)
    r = 1.0 if sg == 0 else f32(math.sqrt(f32(sf / sg) * f32(lf / lg)))
    t = f32(1 - 1 / (r + 1))
    if f32(0.05) < t < f32(0.95):
        moved[i] = [f32(a + t * x) for a, x in zip(A[i], e)]

for i in range(N):
    words = [struct.unpack("<I", struct.pack("<f", x))[0] for v in (moved[i], A[i], B[i]) for x in v]
    print("{" + ", ".join(f"0x{w:08X}" for w in words) + "},")
print("// straight in space:", in_space, "in plan:", in_plan)
print("// refused (sweep, node):", refused)
print("// moved:", [i for i in range(N) if moved[i] != P[i]])
