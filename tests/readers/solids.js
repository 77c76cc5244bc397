// Reads files of solids with three's loaders and prints one line of JSON for each: bodies, triangles,
// the volume that they enclose in mm3, and how many edges are not used once in each direction.
//   node solids.js FOLDER-OF-NODE_MODULES FILE...
import { readFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';

const [modules, ...files] = process.argv.slice(2);
const path = (name) => pathToFileURL(`${modules}/three/examples/jsm/loaders/${name}.js`).href;

// The loaders ask a browser for their pictures; none is shown here.
globalThis.self = globalThis;
globalThis.document = {
    createElementNS: () => ({
        addEventListener(kind, listener) {
            if (kind === 'load') setTimeout(() => listener.call(this), 0);
        },
        removeEventListener() {},
    }),
};

const { STLLoader } = await import(path('STLLoader'));
const { OBJLoader } = await import(path('OBJLoader'));
const { GLTFLoader } = await import(path('GLTFLoader'));
const { Mesh, Vector3 } = await import(pathToFileURL(`${modules}/three/build/three.module.js`).href);

const bytesOf = (file) => {
    const bytes = readFileSync(file);
    return bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.byteLength);
};

const sceneOf = async (file) => {
    if (file.endsWith('.stl')) return new Mesh(new STLLoader().parse(bytesOf(file)));
    if (file.endsWith('.obj')) return new OBJLoader().parse(readFileSync(file, 'utf8'));
    return (await new GLTFLoader().parseAsync(bytesOf(file), '')).scene;
};

// The parts of a body are the meshes of one parent, as a loader splits what has several materials.
const bodiesOf = (scene) => {
    const bodies = new Map();
    scene.updateMatrixWorld(true);
    scene.traverse((node) => {
        if (!node.isMesh) return;
        const key = node.parent?.isGroup && node.parent !== scene ? node.parent : node;
        bodies.set(key, [...(bodies.get(key) ?? []), node]);
    });
    return [...bodies.values()];
};

const measure = (meshes, found) => {
    const edges = new Map();
    const corner = new Vector3();
    for (const mesh of meshes) {
        const { index, attributes } = mesh.geometry;
        const count = index ? index.count : attributes.position.count;
        for (let first = 0; first < count; first += 3) {
            const corners = [0, 1, 2].map((n) => {
                const place = index ? index.getX(first + n) : first + n;
                return corner.fromBufferAttribute(attributes.position, place).applyMatrix4(mesh.matrixWorld).clone();
            });
            found.triangles += 1;
            found.volume += corners[0].dot(corners[1].clone().cross(corners[2])) / 6;
            const keys = [0, 1, 2].map((n) => {
                const place = index ? index.getX(first + n) : first + n;
                return [0, 1, 2].map((axis) => attributes.position.getComponent(place, axis)).join();
            });
            for (let n = 0; n < 3; n += 1) {
                const [from, to] = [keys[n], keys[(n + 1) % 3]];
                edges.set(`${from}>${to}`, (edges.get(`${from}>${to}`) ?? 0) + 1);
                edges.set(`${to}>${from}`, (edges.get(`${to}>${from}`) ?? 0) - 1);
            }
        }
    }
    found.open += [...edges.values()].filter((uses) => uses !== 0).length;
};

for (const file of files) {
    const found = { bodies: 0, triangles: 0, volume: 0, open: 0 };
    const complaints = [];
    console.warn = console.error = (...texts) => complaints.push(texts.join(' '));
    try {
        for (const meshes of bodiesOf(await sceneOf(file))) {
            found.bodies += 1;
            measure(meshes, found);
        }
    } catch (failure) {
        complaints.push(String(failure));
    }
    console.log(JSON.stringify({ ...found, complaints }));
}
