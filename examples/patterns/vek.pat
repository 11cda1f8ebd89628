;; Hatch patterns for facade and metal work, in millimetres: draw details 1:1 with a scale of 1.0.
;; *NAME, description
;; angle, x, y of a point, shift along, distance to the next line, dashes (above 0 drawn, below 0 a gap, 0 a dot)

;; Metals
*STEEL, Steel in section: pairs of lines
45, 0, 0, 0, 4
45, 0, 1.2, 0, 4

*STAINLESS, Stainless steel in section: pairs of lines, the second one dashed
45, 0, 0, 0, 4
45, 0, 1.2, 0, 4, 3, -1

*ALUMINIUM, Aluminium in section: a line and a dashed line in turn
45, 0, 0, 0, 4
45, 0, 2.8284, 0, 4, 4, -2

*BRASS, Brass and bronze in section: a line and a dash-dot line in turn
45, 0, 0, 0, 4
45, 0, 2.8284, 0, 4, 4, -1, 0, -1

*ZINC, Zinc and lead in section: crossing lines
45, 0, 0, 0, 3
135, 0, 0, 0, 3

*CASTIRON, Castings in section: steep single lines
60, 0, 0, 0, 3

*TREAD, Tread plate seen from above: bars set crosswise
45, -1.7678, -1.7678, 5.6569, 5.6569, 5, -6.3137
135, 5.7678, 2.2322, 5.6569, 5.6569, 5, -6.3137

*PERFORATED, Perforated sheet: squares standing on a corner, in staggered rows
45, 0, -1, 4.2426, 4.2426, 1.4142, -7.0711
45, -1, 0, 4.2426, 4.2426, 1.4142, -7.0711
135, 0, -1, 4.2426, 4.2426, 1.4142, -7.0711
135, 1, 0, 4.2426, 4.2426, 1.4142, -7.0711

*TRAPEZOID, Trapezoidal sheet seen from the front: broad and narrow ribs
90, 0, 0, 0, 20
90, 8, 0, 0, 20
90, 10, 0, 0, 20
90, 18, 0, 0, 20

;; Insulation, membranes and seals
*INSULATION, Soft insulation: a zigzag between two lines
0, 0, 0, 0, 20
75.9638, 0, 0, 19.4029, 4.8507, 20.6155, -20.6155
104.036, 10, 0, -19.4029, 4.8507, 20.6155, -20.6155

*MINERALWOOL, Mineral wool: waves of chords
0, 0, 0, 0, 12, 3, -9
53.1301, 3, 0, -16.8, 2.4, 5, -55
0, 6, 4, 0, 12, 3, -9
126.87, 12, 0, 16.8, 2.4, 5, -55

*HARDFOAM, Rigid foam: a honeycomb
0, 0, 0, -4.5, 2.5981, 3, -6
60, 3, 0, 4.5, 2.5981, 3, -6
120, 0, 0, 4.5, 2.5981, 3, -6

*EPDM, EPDM gaskets: dense crossing lines
45, 0, 0, 0, 1.2
135, 0, 0, 0, 1.2

*SEALANT, Sealant: fine dots in staggered rows
0, 0, 0, 1, 1.2, 0, -1.8

*MEMBRANE, Sealing membrane: long dashes, close together
0, 0, 0, 4, 1.5, 6, -2

;; Glass and mineral materials
*GLASS, Glass seen from the front: groups of three slanting strokes
45, 0, 0, 20, 20, 14, -26
45, 2, 0, 20, 20, 10, -30
45, 4, 0, 20, 20, 6, -34

*GLASS-SECTION, Glass in section: fine steep lines
60, 0, 0, 0, 1.5

*CONCRETE, Concrete: slanting lines with dots between them
45, 0, 0, 0, 8
45, 0, 4.9569, 5, 8, 0, -4.1, 0, -6.3
45, 0, 6.7569, 3, 8, 0, -7.3, 0, -3.9

*CONCRETE-REINFORCED, Reinforced concrete: pairs of lines with dots between them
45, 0, 0, 0, 8
45, 0, 1.4, 0, 8
45, 0, 5.5, 5, 8, 0, -4.1, 0, -6.3

*BRICK, Brickwork seen from the front, stretcher bond
0, 0, 0, 0, 7.5
90, 0, 0, 7.5, 12.5, 7.5, -7.5

*BRICK-SECTION, Brickwork in section: slanting lines
45, 0, 0, 0, 6

*PLASTER, Plaster and mortar: scattered dots
37, 0, 0, 2.3, 2.9, 0, -3.7, 0, -5.1
-52, 1.1, 0.7, 3.1, 3.7, 0, -4.3, 0, -6.7

*NATURALSTONE, Natural stone: slanting lines, broken
45, 0, 0, 6, 3, 9, -3
45, 0, 1.2, 4, 6, 2, -10

*CERAMIC, Ceramic tiles: square joints
0, 0, 0, 0, 15
90, 0, 0, 0, 15

*EARTH, Grown soil: bundles of short strokes, crosswise
45, -0.7071, -3.5355, 0, 11.3137, 6, -5.3137
45, -2.1213, -2.1213, 0, 11.3137, 6, -5.3137
45, -3.5355, -0.7071, 0, 11.3137, 6, -5.3137
135, 11.5355, -0.7071, 0, 11.3137, 6, -5.3137
135, 10.1213, -2.1213, 0, 11.3137, 6, -5.3137
135, 8.7071, -3.5355, 0, 11.3137, 6, -5.3137

*SAND, Sand: dots in loose rows
0, 0, 0, 1.7, 2.1, 0, -2.9, 0, -4.3
63, 0.8, 0.9, 2.2, 3.3, 0, -5.7

*GRAVEL, Gravel and loose chippings: round stones, each side a family
135, 7, 4, 16.9706, 16.9706, 2.8284, -31.1127
180, 5, 6, -0, 24, 3, -21
-104.036, 2, 6, 23.2834, 5.8209, 4.1231, -94.8314
-18.4349, 1, 2, 22.7684, 7.5895, 3.1623, -72.7324
45, 4, 1, 16.9706, 16.9706, 4.2426, -29.6985
116.565, 15, 3, -21.4663, 10.7331, 2.2361, -51.4296
165.964, 14, 5, 23.2834, 5.8209, 4.1231, -94.8314
-123.69, 10, 6, -33.282, 6.6564, 3.6056, -82.9277
-45, 8, 3, -16.9706, 16.9706, 2.8284, -31.1127
-14.0362, 10, 1, 23.2834, 5.8209, 4.1231, -94.8314
71.5651, 14, 0, 22.7684, 7.5895, 3.1623, -72.7324
116.565, 23, 4, -21.4663, 10.7331, 4.4721, -49.1935
180, 21, 8, -0, 24, 2, -22
-146.31, 19, 8, 33.282, 6.6564, 3.6056, -82.9277
-53.1301, 16, 6, 33.6, 4.8, 5, -115
0, 19, 2, 0, 24, 3, -21
63.4349, 22, 2, 21.4663, 10.7331, 2.2361, -51.4296
135, 10, 12, 16.9706, 16.9706, 2.8284, -31.1127
153.435, 8, 14, 21.4663, 10.7331, 2.2361, -51.4296
-116.565, 6, 15, 21.4663, 10.7331, 2.2361, -51.4296
-116.565, 5, 13, 21.4663, 10.7331, 2.2361, -51.4296
-45, 4, 11, -16.9706, 16.9706, 2.8284, -31.1127
18.4349, 6, 9, -22.7684, 7.5895, 3.1623, -72.7324
63.4349, 9, 10, 21.4663, 10.7331, 2.2361, -51.4296
135, 19, 12, 16.9706, 16.9706, 2.8284, -31.1127
153.435, 17, 14, 21.4663, 10.7331, 2.2361, -51.4296
-135, 15, 15, -16.9706, 16.9706, 2.8284, -31.1127
-90, 13, 13, 0, 24, 2, -22
-45, 13, 11, -16.9706, 16.9706, 2.8284, -31.1127
18.4349, 15, 9, -22.7684, 7.5895, 3.1623, -72.7324
63.4349, 18, 10, 21.4663, 10.7331, 2.2361, -51.4296
116.565, 6, 19, -21.4663, 10.7331, 4.4721, -49.1935
-165.964, 4, 23, -23.2834, 5.8209, 4.1231, -94.8314
-75.9638, 0, 22, -23.2834, 5.8209, 4.1231, -94.8314
-18.4349, 1, 18, 22.7684, 7.5895, 3.1623, -72.7324
45, 4, 17, 16.9706, 16.9706, 2.8284, -31.1127
135, 15, 20, 16.9706, 16.9706, 2.8284, -31.1127
165.964, 13, 22, 23.2834, 5.8209, 4.1231, -94.8314
-123.69, 9, 23, -33.282, 6.6564, 3.6056, -82.9277
-56.3099, 7, 20, 33.282, 6.6564, 3.6056, -82.9277
18.4349, 9, 17, -22.7684, 7.5895, 3.1623, -72.7324
33.6901, 12, 18, 33.282, 6.6564, 3.6056, -82.9277
135, 23, 20, 16.9706, 16.9706, 2.8284, -31.1127
180, 21, 22, -0, 24, 3, -21
-116.565, 18, 22, 21.4663, 10.7331, 2.2361, -51.4296
-75.9638, 17, 20, -23.2834, 5.8209, 4.1231, -94.8314
14.0362, 18, 16, -23.2834, 5.8209, 4.1231, -94.8314
71.5651, 22, 17, 22.7684, 7.5895, 3.1623, -72.7324

;; Timber and boards
*TIMBER, Timber seen along the grain: uneven lines
0, 0, 0, 0, 10, 18, -1, 7, -1
0, 4, 2.3, 0, 10, 25, -2
0, 9, 4.1, 0, 10, 11, -1, 14, -1.5
0, 2, 6.6, 0, 10, 30, -2
0, 0, 8.2, 0, 10, 8, -1, 16, -1

*TIMBER-SECTION, Timber in section: close lines of uneven distance
45, 0, 0, 0, 6
45, 0, 1.6, 0, 6
45, 0, 4.4, 0, 6

*CHIPBOARD, Chipboard: short strokes in three directions
0, 0, 0, 3.1, 2.3, 1.5, -4.7
60, 1, 0.5, 2.7, 3.1, 1.5, -5.3
120, 2, 1, 3.3, 3.7, 1.5, -5.9

*GYPSUM, Plasterboard: dashes and dots in staggered rows
0, 0, 0, 3, 2.5, 3, -3
0, 4.5, 1.25, 3, 2.5, 0, -6
