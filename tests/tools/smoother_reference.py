#!/usr/bin/env python3
"""Computes in another way how the Node Smoother changes the curve in mNLT_SmootherTests.cpp."""
import math, pathlib, re, struct

f32 = lambda x: struct.unpack("<f", struct.pack("<f", x))[0]
CURVE = pathlib.Path(__file__).with_name("mNLT_SmootherTests.cpp").read_text().split("WorkedCurve = {")[1].split("};")[0]
POINTS = [tuple(f32(x) for x in map(float, point.replace("F", "").split(","))) for point in re.findall(r"\{(-?\d[^{}]*)\}", CURVE)]
N = len(POINTS) // 3
minus = lambda p, q: [f32(x - y) for x, y in zip(p, q)]
dot = lambda p, q: p[0] * q[0] + p[1] * q[1] + p[2] * q[2]
length = lambda p: math.sqrt(dot(p, p))
cosine = lambda p, q: dot(p, q) / (length(p) * length(q))
inside = lambda p: -220 < p[0] < 220 and 0 < p[1] < 150 and -220 < p[2] < 220
straight = lambda a, b, c: all(map(length, (a, b, c))) and min(cosine(a, b), cosine(a, c), cosine(b, c)) > 0.998
P, A, B = ([list(point) for point in POINTS[k::3]] for k in range(3))
in_space, in_plan, new = [False] * N, [False] * N, [None] * N
for i in range(N):
    j = (i + 1) % N
    sides = minus(P[i], B[i]), minus(A[j], P[j]), minus(P[i], P[j])
    if straight(*sides):
        in_space[i] = in_space[j] = in_plan[i] = in_plan[j] = True
    if straight(*[[x, 0.0, z] for x, _, z in sides]):
        in_plan[i] = in_plan[j] = True

def flattened(i):
    u, w = minus(B[i - 1], P[i]), minus(A[(i + 1) % N], P[i])
    n = [f32(u[k - 2] * w[k - 1] - u[k - 1] * w[k - 2]) for k in range(3)]
    s = f32(dot(n, n))
    return (A[i], B[i]) if in_plan[i] or s == 0 else tuple(
        [f32(x - y * f32(dot(n, minus(c, P[i]))) / s) for x, y in zip(c, n)] for c in (A[i], B[i]))

for sweep in range(1, 22):
    for i in range(0, N, 2 if sweep == 21 else 1):
        new[i] = flattened(i) if sweep == 21 else tuple(
            [f32((x + y) / 2) for x, y in zip(p, q)] for p, q in zip(flattened(i), (A[i], B[i])))
    for i in range(N):
        if inside(new[i][0]) and inside(new[i][1]):
            A[i], B[i] = new[i]
moved = list(P)
for i in range(N):
    p, q = i - 1, (i + 1) % N
    if in_plan[i] and (in_space[i] or not in_plan[p] or not in_plan[q]):
        continue
    e, f, g = minus(B[i], A[i]), minus(A[i], B[p]), minus(B[i], A[q])
    sf, sg = math.sqrt(1 - cosine(f, e) ** 2), math.sqrt(1 - cosine(g, [-x for x in e]) ** 2)
    t = f32(1 - 1 / ((1.0 if sg == 0 else f32(math.sqrt(f32(sf / sg) * f32(f32(length(f)) / f32(length(g)))))) + 1))
    if f32(0.05) < t < f32(0.95):
        moved[i] = [f32(a + t * x) for a, x in zip(A[i], e)]
for point in zip(moved, A, B):
    print(*(struct.pack(">f", x).hex().upper() for vector in point for x in vector))
