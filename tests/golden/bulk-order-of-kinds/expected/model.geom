!------------------------------------------------
! Geometry Definitions
!------------------------------------------------

Node Definition:
!--- nid                    x                    y                    z    tc    rc
       1  5.0000000000000e-01  2.5000000000000e-01 -7.5000000000000e-01     0     0
       2  1.5000000000000e+00  2.5000000000000e-01 -7.5000000000000e-01     0     0

 Shell Element Definition:
!--- eid      pid         n1         n2         n3         n4
!------------- t1         t2         t3         t4       beta
       3        7          1          2          3          4
        0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00

 Solid Element Definition:
!--- eid      pid       n1       n2       n3       n4       n5       n6       n7       n8
       2        6        1        2        3        4        5        6        7        8

 SPH Element Definition:
!--- nid      pid             mass
       1        5   5.00000000e-01
       2        5   5.00000000e-01


