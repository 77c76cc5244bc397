// Reads VRML files with three's loader and prints one line of JSON for each: meshes and triangles.
//   node vrml.js FOLDER-OF-NODE_MODULES FILE...
import { readFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';

const [modules, ...files] = process.argv.slice(2);
const path = (name) => pathToFileURL(`${modules}/${name}`).href;

// The loader asks a web page for its pictures; none is shown here.
globalThis.document = {
    createElementNS: () => ({ addEventListener() {}, removeEventListener() {} }),
};

const { VRMLLoader } = await import(path('three/examples/jsm/loaders/VRMLLoader.js'));

for (const file of files) {
    const complaints = [];
    console.warn = console.error = (...texts) => complaints.push(texts.join(' '));
    const found = { meshes: 0, triangles: 0 };
    try {
        const scene = new VRMLLoader().parse(readFileSync(file, 'utf8'), '');
        scene.traverse((node) => {
            if (!node.isMesh) return;
            found.meshes += 1;
            const { index, attributes } = node.geometry;
            found.triangles += (index ? index.count : attributes.position.count) / 3;
        });
    } catch (failure) {
        complaints.push(String(failure));
    }
    console.log(JSON.stringify({ ...found, complaints }));
}
